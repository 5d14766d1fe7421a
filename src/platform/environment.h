#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace platform {

// Process environment, program location and the user's special folders.
class Environment {
 public:
  virtual ~Environment() = default;

  // Looks a variable up by its exact name first, then ignoring letter case.
  virtual std::optional<std::string> GetVariable(const std::string& name) const = 0;
  // Sets a variable; one that exists under another letter case is the one changed.
  virtual void SetVariable(const std::string& name, const std::string& value) = 0;

  // The folder that holds the running executable, without a trailing separator.
  virtual std::string ProgramFolder() const = 0;

  // Same bit layout as the Windows version word: bit 31 clear means the NT family.
  virtual std::uint32_t GetVersion() const = 0;

  // The folder of a Windows special-folder number (0 desktop, 5 documents, 13 music, 14 videos,
  // 26 application data, 35 common application data, 39 pictures), without a trailing
  // separator; create makes it when missing (best effort). Unknown numbers give "".
  virtual std::string SpecialFolderPath(int folder_id, bool create) = 0;
};

}  // namespace platform

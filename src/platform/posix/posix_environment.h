#pragma once

#include <string>

#include "platform/environment.h"

namespace platform::posix {

// The process environment, the executable's folder and the XDG folders standing in for the
// Windows special folders.
class PosixEnvironment final : public Environment {
 public:
  // The program folder is the folder of /proc/self/exe unless one is given (tests).
  PosixEnvironment();
  explicit PosixEnvironment(std::string program_folder);

  std::optional<std::string> GetVariable(const std::string& name) const override;
  void SetVariable(const std::string& name, const std::string& value) override;
  std::string ProgramFolder() const override { return program_folder_; }
  std::uint32_t GetVersion() const override;
  std::string SpecialFolderPath(int folder_id, bool create) override;

 private:
  std::string program_folder_;
};

}  // namespace platform::posix

#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace platform {

// The plain file operations the core needs; every call opens, acts and closes.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // Size in bytes, or nothing when the file does not exist or cannot be examined.
  virtual std::optional<std::uint64_t> FileSize(const std::string& path) const = 0;
  // Creates one folder; true when it exists afterwards.
  virtual bool CreateFolder(const std::string& path) = 0;
  // Copies a file over an existing one; false when nothing was copied.
  virtual bool CopyFile(const std::string& from, const std::string& to) = 0;
};

}  // namespace platform

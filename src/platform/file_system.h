#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace platform {

// The plain file operations the core needs; every call opens, acts and closes.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // Size in bytes, or nothing when the file does not exist or cannot be examined.
  virtual std::optional<std::uint64_t> FileSize(const std::string& path) const = 0;
  // Whether a file or folder of that path exists.
  virtual bool PathExists(const std::string& path) const = 0;
  // Creates one folder; true when it exists afterwards.
  virtual bool CreateFolder(const std::string& path) = 0;
  // The same for a folder of the user's own files, which only the user may enter; an existing
  // folder is left as it is.
  virtual bool CreatePrivateFolder(const std::string& path) = 0;
  // Copies a file over an existing one; false when nothing was copied.
  virtual bool CopyFile(const std::string& from, const std::string& to) = 0;
  // Writes bytes to the end of a file, creating the file but not its folder.
  virtual bool AppendToFile(const std::string& path, const std::string& bytes) = 0;
  // Replaces a file's content with bytes; the error says why it failed.
  virtual std::error_code WriteFile(const std::string& path, const std::string& bytes) = 0;
  // Names (not paths) of the regular files in a folder; empty when it cannot be read.
  virtual std::vector<std::string> ListFiles(const std::string& folder) const = 0;
  virtual bool DeleteFile(const std::string& path) = 0;
};

}  // namespace platform

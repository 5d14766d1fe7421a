#pragma once

#include "platform/file_system.h"

namespace platform::posix {

class PosixFileSystem final : public FileSystem {
 public:
  std::optional<std::uint64_t> FileSize(const std::string& path) const override;
  bool PathExists(const std::string& path) const override;
  bool CreateFolder(const std::string& path) override;
  bool CreatePrivateFolder(const std::string& path) override;
  bool CopyFile(const std::string& from, const std::string& to) override;
  bool AppendToFile(const std::string& path, const std::string& bytes) override;
  std::error_code WriteFile(const std::string& path, const std::string& bytes) override;
  std::vector<std::string> ListFiles(const std::string& folder) const override;
  bool DeleteFile(const std::string& path) override;
};

}  // namespace platform::posix

#include "platform/posix/posix_file_system.h"

#include <filesystem>

namespace platform::posix {

namespace fs = std::filesystem;

std::optional<std::uint64_t> PosixFileSystem::FileSize(const std::string& path) const {
  std::error_code error;
  const auto size = fs::file_size(path, error);
  if (error) return std::nullopt;
  return size;
}

bool PosixFileSystem::CreateFolder(const std::string& path) {
  std::error_code error;
  fs::create_directory(path, error);
  return fs::is_directory(path, error);
}

bool PosixFileSystem::CopyFile(const std::string& from, const std::string& to) {
  std::error_code error;
  return fs::copy_file(from, to, fs::copy_options::overwrite_existing, error) && !error;
}

}  // namespace platform::posix

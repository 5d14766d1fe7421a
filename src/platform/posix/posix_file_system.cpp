#include "platform/posix/posix_file_system.h"

#include <fcntl.h>
#include <unistd.h>
#include <cerrno>

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

namespace {

std::error_code WriteAll(const std::string& path, const std::string& bytes, int mode_flags) {
  const auto failure = [] { return std::error_code(errno, std::generic_category()); };
  const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | mode_flags, 0644);
  if (fd < 0) return failure();
  std::size_t done = 0;
  std::error_code error;
  while (done < bytes.size() && !error) {
    const ssize_t n = write(fd, bytes.data() + done, bytes.size() - done);
    if (n < 0) error = failure();
    if (n == 0) error = std::make_error_code(std::errc::no_space_on_device);
    if (n > 0) done += static_cast<std::size_t>(n);
  }
  if (close(fd) != 0 && !error) error = failure();
  return error;
}

}  // namespace

// One write call with O_APPEND, so lines from two processes never interleave mid-line.
bool PosixFileSystem::AppendToFile(const std::string& path, const std::string& bytes) {
  return !WriteAll(path, bytes, O_APPEND);
}

std::error_code PosixFileSystem::WriteFile(const std::string& path, const std::string& bytes) {
  return WriteAll(path, bytes, O_TRUNC);
}

std::vector<std::string> PosixFileSystem::ListFiles(const std::string& folder) const {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    if (it->is_regular_file(error)) names.push_back(it->path().filename().string());
  }
  return names;
}

bool PosixFileSystem::DeleteFile(const std::string& path) {
  std::error_code error;
  return fs::remove(path, error);
}

}  // namespace platform::posix

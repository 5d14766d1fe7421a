#include "platform/posix/posix_file_system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string>

namespace platform::posix {

namespace fs = std::filesystem;

std::optional<std::uint64_t> PosixFileSystem::FileSize(const std::string& path) const {
  std::error_code error;
  const auto size = fs::file_size(path, error);
  if (error) return std::nullopt;
  return size;
}

bool PosixFileSystem::PathExists(const std::string& path) const {
  std::error_code error;
  return fs::exists(path, error);
}

bool PosixFileSystem::CreateFolder(const std::string& path) {
  std::error_code error;
  fs::create_directory(path, error);
  return fs::is_directory(path, error);
}

bool PosixFileSystem::CreatePrivateFolder(const std::string& path) {
  mkdir(path.c_str(), 0700);
  std::error_code error;
  return fs::is_directory(path, error);
}

bool PosixFileSystem::CopyFile(const std::string& from, const std::string& to) {
  std::error_code error;
  return fs::copy_file(from, to, fs::copy_options::overwrite_existing, error) && !error;
}

namespace {

std::error_code LastError() {
  return std::error_code(errno, std::generic_category());
}

std::error_code WriteAll(int fd, const std::string& bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t n = write(fd, bytes.data() + done, bytes.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return LastError();
    if (n == 0) return std::make_error_code(std::errc::no_space_on_device);
    done += static_cast<std::size_t>(n);
  }
  return {};
}

std::error_code WriteAndClose(int fd, const std::string& bytes) {
  std::error_code error = WriteAll(fd, bytes);
  if (close(fd) != 0 && !error) error = LastError();
  return error;
}

}  // namespace

// One write call with O_APPEND, so lines from two processes never interleave mid-line. The
// logs are the user's own business, hence 0600.
bool PosixFileSystem::AppendToFile(const std::string& path, const std::string& bytes) {
  const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  return fd >= 0 && !WriteAndClose(fd, bytes);
}

// The job's script is a program: it is written to a new file only the user may read, never
// through a link somebody put in its place, and renamed over the name. The rename also gives the
// name a new file, by which an interpreter still running an older script of that name knows to
// stop.
std::error_code PosixFileSystem::WriteFile(const std::string& path, const std::string& bytes) {
  const fs::path target(path);
  fs::path hidden = target.parent_path() / ".";
  hidden += target.filename();  // ".name" beside it; not "." + temporary, which GCC 12 flags
  const std::string prefix = hidden.string() + "." + std::to_string(getpid()) + ".";
  std::string temporary;
  int fd = -1;
  for (int attempt = 0; fd < 0 && attempt < 100; ++attempt) {
    temporary = prefix + std::to_string(attempt) + ".tmp";
    fd = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (fd < 0 && errno != EEXIST) return LastError();
  }
  if (fd < 0) return std::make_error_code(std::errc::file_exists);
  std::error_code error = WriteAndClose(fd, bytes);
  if (!error && rename(temporary.c_str(), path.c_str()) != 0) error = LastError();
  if (error) unlink(temporary.c_str());
  return error;
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

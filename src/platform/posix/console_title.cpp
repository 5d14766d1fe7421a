#include "platform/posix/console_title.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "platform/posix/private_folder.h"

namespace platform::posix {
namespace {

// A title longer than this is not a title; reading stops there.
constexpr std::size_t kMaxTitleBytes = 64 * 1024;

bool WriteAll(int fd, const std::string& bytes) {
  std::size_t written = 0;
  while (written < bytes.size()) {
    const ssize_t n = write(fd, bytes.data() + written, bytes.size() - written);
    if (n < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    written += static_cast<std::size_t>(n);
  }
  return true;
}

}  // namespace

std::string ConsoleTitleFolder() {
  return UserRuntimeFolder("wavforge-titles");
}

std::string ConsoleTitlePath(const std::string& folder, pid_t pid) {
  return folder + "/" + std::to_string(pid);
}

std::string ConsoleTitleTemporaryPath(const std::string& folder, pid_t pid) {
  // Starts with a dot so a reader listing the folder never takes it for a process id.
  return folder + "/." + std::to_string(pid) + ".tmp";
}

bool PublishConsoleTitle(const std::string& folder, pid_t pid, const std::string& title) {
  if (!EnsurePrivateFolder(folder)) return false;
  const std::string temporary = ConsoleTitleTemporaryPath(folder, pid);
  const int fd =
      open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (fd < 0) return false;
  const bool written = WriteAll(fd, title);
  if (close(fd) != 0 || !written ||
      rename(temporary.c_str(), ConsoleTitlePath(folder, pid).c_str()) != 0) {
    unlink(temporary.c_str());
    return false;
  }
  return true;
}

std::optional<std::string> ReadConsoleTitle(const std::string& folder, pid_t pid) {
  const int fd = open(ConsoleTitlePath(folder, pid).c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
  if (fd < 0) return std::nullopt;
  std::string title;
  char buffer[4096];
  while (title.size() < kMaxTitleBytes) {
    const ssize_t n = read(fd, buffer, sizeof buffer);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) break;
    title.append(buffer, static_cast<std::size_t>(n));
  }
  close(fd);
  if (title.size() > kMaxTitleBytes) title.resize(kMaxTitleBytes);
  return title;
}

void ClearConsoleTitle(const std::string& folder, pid_t pid) {
  unlink(ConsoleTitlePath(folder, pid).c_str());
  unlink(ConsoleTitleTemporaryPath(folder, pid).c_str());
}

std::string ConsoleTitlePath(pid_t pid) {
  return ConsoleTitlePath(ConsoleTitleFolder(), pid);
}

std::string ConsoleTitleTemporaryPath(pid_t pid) {
  return ConsoleTitleTemporaryPath(ConsoleTitleFolder(), pid);
}

bool PublishConsoleTitle(pid_t pid, const std::string& title) {
  return PublishConsoleTitle(ConsoleTitleFolder(), pid, title);
}

std::optional<std::string> ReadConsoleTitle(pid_t pid) {
  return ReadConsoleTitle(ConsoleTitleFolder(), pid);
}

void ClearConsoleTitle(pid_t pid) {
  ClearConsoleTitle(ConsoleTitleFolder(), pid);
}

}  // namespace platform::posix

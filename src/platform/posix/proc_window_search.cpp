#include "platform/posix/proc_window_search.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "platform/posix/console_title.h"

namespace platform::posix {
namespace {

// The interpreter whose "title" command sets what its console window would show.
constexpr std::string_view kInterpreterName = "wavforge-cmd";

std::string ReadSmallFile(int folder, const char* name) {
  const int fd = openat(folder, name, O_RDONLY | O_CLOEXEC);
  if (fd < 0) return {};
  char buffer[64];
  const ssize_t n = read(fd, buffer, sizeof buffer);
  close(fd);
  return n > 0 ? std::string(buffer, static_cast<std::size_t>(n)) : std::string();
}

}  // namespace

std::vector<std::string> ProcWindowSearch::WindowTitles() {
  std::vector<std::string> titles;
  DIR* proc = opendir("/proc");
  if (!proc) return titles;
  const uid_t user = getuid();
  while (const dirent* entry = readdir(proc)) {
    char* end = nullptr;
    const long pid = std::strtol(entry->d_name, &end, 10);
    if (pid <= 0 || *end != '\0') continue;
    struct stat info {};
    if (fstatat(dirfd(proc), entry->d_name, &info, 0) != 0 || info.st_uid != user) continue;
    const int folder = openat(dirfd(proc), entry->d_name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) continue;
    std::string name = ReadSmallFile(folder, "comm");
    close(folder);
    if (!name.empty() && name.back() == '\n') name.pop_back();
    if (name.empty()) continue;
    if (name == kInterpreterName) {
      if (auto title = ReadConsoleTitle(static_cast<pid_t>(pid))) titles.push_back(*title);
    }
    titles.push_back(std::move(name));
  }
  closedir(proc);
  return titles;
}

}  // namespace platform::posix

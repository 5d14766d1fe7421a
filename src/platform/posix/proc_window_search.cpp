#include "platform/posix/proc_window_search.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "platform/posix/console_title.h"

namespace platform::posix {
namespace {

// The interpreter whose "title" command sets what its console window would show.
constexpr std::string_view kInterpreterName = "wavforge-cmd";

// The name of a process of this user, from its comm file; "" for other users' processes.
// One open, one fstat, one read and one close: the tick runs four times a second.
std::string NameOfOwnProcess(int proc, const char* pid, uid_t user) {
  char path[300];  // a directory entry name is at most 255 bytes
  std::snprintf(path, sizeof path, "%s/comm", pid);
  const int fd = openat(proc, path, O_RDONLY | O_CLOEXEC);
  if (fd < 0) return {};
  struct stat info {};
  char buffer[64];
  ssize_t n = 0;
  if (fstat(fd, &info) == 0 && info.st_uid == user) n = read(fd, buffer, sizeof buffer);
  close(fd);
  std::string name(buffer, n > 0 ? static_cast<std::size_t>(n) : 0);
  if (!name.empty() && name.back() == '\n') name.pop_back();
  return name;
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
    std::string name = NameOfOwnProcess(dirfd(proc), entry->d_name, user);
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

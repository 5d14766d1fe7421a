#include "platform/posix/console_title_search.h"

#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/posix/console_title.h"
#include "platform/window_titles.h"

namespace platform::posix {
namespace {

enum class Writer { kRunning, kGone, kUnknown };

// A title file is named after the process that wrote it.
pid_t ProcessIdOf(const char* name) {
  pid_t pid = 0;
  for (const char* c = name; *c; ++c) {
    if (*c < '0' || *c > '9' || pid > 100'000'000) return 0;
    pid = pid * 10 + (*c - '0');
  }
  return pid;
}

// Whether pid is still one of our interpreters or encoding tools (whose background encoders
// keep the job's title while they run), from /proc/<pid>/stat: one read gives its name
// and whether it has ended, the file's owner is the process's user. A title only counts while
// its writer runs: an interpreter killed outright cannot remove its file.
Writer StateOfWriter(pid_t pid) {
  char path[32];
  std::snprintf(path, sizeof path, "/proc/%d/stat", static_cast<int>(pid));
  const int fd = open(path, O_RDONLY | O_CLOEXEC);
  if (fd < 0) return kill(pid, 0) != 0 && errno == ESRCH ? Writer::kGone : Writer::kUnknown;
  struct stat info {};
  char buffer[128];
  ssize_t n = 0;
  if (fstat(fd, &info) == 0 && info.st_uid == geteuid()) n = read(fd, buffer, sizeof buffer);
  close(fd);
  if (n <= 0) return Writer::kUnknown;
  // "<pid> (<name>) <state> ...": the name may hold anything, so it ends at the last ')'.
  const std::string_view stat(buffer, static_cast<std::size_t>(n));
  const auto open_paren = stat.find('(');
  const auto close_paren = stat.rfind(')');
  if (open_paren == stat.npos || close_paren == stat.npos || close_paren + 2 >= stat.size()) {
    return Writer::kUnknown;
  }
  const char state = stat[close_paren + 2];
  if (state == 'Z' || state == 'X') return Writer::kGone;  // ended, its id not yet free
  const auto name = stat.substr(open_paren + 1, close_paren - open_paren - 1);
  return name == "wavforge-cmd" || name == "wavforge-encode" ? Writer::kRunning : Writer::kUnknown;
}

}  // namespace

bool ConsoleTitleSearch::AnyWindowTitled(std::span<const char* const> titles) {
  // Taken on every search: the folder follows the environment, as the interpreters' does.
  const std::string folder = ConsoleTitleFolder();
  DIR* entries = opendir(folder.c_str());
  if (!entries) return false;
  bool found = false;
  while (!found) {
    const dirent* entry = readdir(entries);
    if (!entry) break;
    const pid_t pid = ProcessIdOf(entry->d_name);
    if (pid <= 0) continue;  // ".", "..", half-written ".<pid>.tmp" files
    switch (StateOfWriter(pid)) {
      case Writer::kRunning:
        if (const auto title = ReadConsoleTitle(folder, pid)) found = IsOneOfTitles(*title, titles);
        break;
      case Writer::kGone:
        ClearConsoleTitle(folder, pid);  // left by an interpreter that was killed
        break;
      case Writer::kUnknown:
        break;  // another program under a reused id, or one we may not look at: not ours
    }
  }
  closedir(entries);
  return found;
}

void WaitForTitleHolderToEnd(std::chrono::milliseconds longest) {
  // A job has a few processes with titles; more than this are other jobs, and waking for one
  // of those too early only costs a look.
  constexpr std::size_t kMostWatched = 64;
  std::vector<pollfd> holders;
  bool one_ended = false;
  const std::string folder = ConsoleTitleFolder();
  if (DIR* entries = opendir(folder.c_str())) {
    while (const dirent* entry = readdir(entries)) {
      const pid_t pid = ProcessIdOf(entry->d_name);
      if (pid <= 0 || holders.size() == kMostWatched) continue;
      // Debian 12's sys/pidfd.h cannot be used from C++ (no extern "C"), hence the raw call.
      const int fd = static_cast<int>(syscall(SYS_pidfd_open, pid, 0));
      if (fd >= 0) {
        holders.push_back({fd, POLLIN, 0});
      } else if (errno == ESRCH && ReadConsoleTitle(folder, pid)) {
        continue;  // left by a killed process: the next search clears it
      } else if (errno == ESRCH) {
        one_ended = true;  // ended just now
        break;
      }
    }
    closedir(entries);
  }
  if (!one_ended && holders.empty()) std::this_thread::sleep_for(longest);
  if (!one_ended && !holders.empty()) {
    // A process that ends makes its descriptor readable.
    while (poll(holders.data(), holders.size(), static_cast<int>(longest.count())) < 0 &&
           errno == EINTR) {
    }
  }
  for (const pollfd& holder : holders) close(holder.fd);
}

}  // namespace platform::posix

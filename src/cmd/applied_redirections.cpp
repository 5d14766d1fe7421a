#include "cmd/applied_redirections.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>

#include "cmd/variable_lookup.h"

namespace wavforge::cmd {
namespace {

// Saved copies live above the handles a redirection may name (0-9).
constexpr int kFirstSavedHandle = 10;

}  // namespace

std::string RedirectionFileName(const std::string& target) {
  if (EqualsIgnoringCase(target, "nul") || EqualsIgnoringCase(target, "nul:")) return "/dev/null";
  return target;
}

AppliedRedirections::~AppliedRedirections() {
  Restore();
}

void AppliedRedirections::Save(int handle) {
  const bool known = std::any_of(saved_.begin(), saved_.end(),
                                 [handle](const Saved& saved) { return saved.handle == handle; });
  if (known) return;
  saved_.push_back({handle, fcntl(handle, F_DUPFD_CLOEXEC, kFirstSavedHandle)});
}

void AppliedRedirections::Restore() {
  // Newest first, so the oldest copy of each handle is what remains.
  for (auto it = saved_.rbegin(); it != saved_.rend(); ++it) {
    if (it->copy >= 0) {
      dup2(it->copy, it->handle);
      close(it->copy);
    } else {
      close(it->handle);
    }
  }
  saved_.clear();
}

bool AppliedRedirections::Apply(const std::vector<Redirection>& redirections, std::string& error) {
  for (const Redirection& redirection : redirections) {
    Save(redirection.handle);
    if (redirection.kind == RedirectionKind::kDuplicate) {
      if (dup2(redirection.target_handle, redirection.handle) < 0) {
        error = "The handle could not be duplicated during redirection of handle " +
                std::to_string(redirection.handle) + ".";
        Restore();
        return false;
      }
      continue;
    }
    int flags = O_CLOEXEC;
    switch (redirection.kind) {
      case RedirectionKind::kRead:
        flags |= O_RDONLY;
        break;
      case RedirectionKind::kAppend:
        flags |= O_WRONLY | O_CREAT | O_APPEND;
        break;
      default:
        flags |= O_WRONLY | O_CREAT | O_TRUNC;
        break;
    }
    const std::string file = RedirectionFileName(redirection.target);
    const int fd = open(file.c_str(), flags, 0666);
    if (fd < 0) {
      error = redirection.kind == RedirectionKind::kRead
                  ? "The system cannot find the file specified."
                  : "The system cannot find the path specified.";
      Restore();
      return false;
    }
    if (fd != redirection.handle) {
      dup2(fd, redirection.handle);
      close(fd);
    } else {
      // Opened straight onto a closed handle: it must survive the programs we start.
      fcntl(fd, F_SETFD, 0);
    }
  }
  return true;
}

}  // namespace wavforge::cmd

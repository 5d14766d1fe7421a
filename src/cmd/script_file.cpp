#include "cmd/script_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace wavforge::cmd {

ScriptCheck CheckScript(const std::string& path) {
  const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
  if (fd < 0) return {errno == ELOOP ? ScriptSafety::kUnsafe : ScriptSafety::kMissing, {}};
  struct stat info {};
  const bool examined = fstat(fd, &info) == 0;
  close(fd);
  if (!examined) return {};
  const bool safe = S_ISREG(info.st_mode) && info.st_uid == geteuid() &&
                    (info.st_mode & (S_IWGRP | S_IWOTH)) == 0;
  return {safe ? ScriptSafety::kSafe : ScriptSafety::kUnsafe,
          {static_cast<std::uint64_t>(info.st_dev), static_cast<std::uint64_t>(info.st_ino)}};
}

}  // namespace wavforge::cmd

#include "platform/posix/private_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace platform::posix {

bool EnsurePrivateFolder(const std::string& folder) {
  if (mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST) return false;
  // Examined and changed through one descriptor, so nothing can be swapped in between.
  const int fd = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
  if (fd < 0) return false;
  struct stat info {};
  const bool ours = fstat(fd, &info) == 0 && S_ISDIR(info.st_mode) && info.st_uid == geteuid() &&
                    ((info.st_mode & 077) == 0 || fchmod(fd, 0700) == 0);
  close(fd);
  return ours;
}

std::string UserRuntimeFolder(const std::string& name) {
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  if (runtime && *runtime) return std::string(runtime) + "/" + name;
  const char* temp = std::getenv("TMPDIR");
  return std::string(temp && *temp ? temp : "/tmp") + "/" + name + "-" + std::to_string(geteuid());
}

}  // namespace platform::posix

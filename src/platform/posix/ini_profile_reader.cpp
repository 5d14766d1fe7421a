#include "platform/posix/ini_profile_reader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/ini_document.h"

namespace platform::posix {
namespace {

// The whole file, or nothing when it is missing, not a regular file, or fails while being read.
// Opening without blocking keeps a FIFO under that name from stalling the program.
std::string ReadWholeFile(const std::string& path) {
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) return {};
  std::string bytes;
  struct stat status {};
  if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
    char buffer[64 * 1024];
    for (;;) {
      const ssize_t count = ::read(descriptor, buffer, sizeof buffer);
      if (count > 0) {
        bytes.append(buffer, static_cast<std::size_t>(count));
      } else if (count == 0) {
        break;
      } else if (errno != EINTR) {
        bytes.clear();
        break;
      }
    }
  }
  ::close(descriptor);
  return bytes;
}

IniDocument Load(const std::string& path) {
  return IniDocument::Parse(ReadWholeFile(path));
}

}  // namespace

std::optional<std::string> IniProfileReader::ReadValue(const std::string& file,
                                                       const std::string& section,
                                                       const std::string& key) const {
  return Load(file).Value(section, key);
}

std::vector<std::string> IniProfileReader::SectionNames(const std::string& file) const {
  return Load(file).SectionNames();
}

std::vector<std::string> IniProfileReader::KeyNames(const std::string& file,
                                                    const std::string& section) const {
  return Load(file).KeyNames(section);
}

}  // namespace platform::posix

#include "cmd/script_line_reader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace wavforge::cmd {
namespace {

constexpr std::size_t kChunk = 4096;

class FileCloser {
 public:
  explicit FileCloser(int fd) : fd_(fd) {}
  FileCloser(const FileCloser&) = delete;
  FileCloser& operator=(const FileCloser&) = delete;
  ~FileCloser() { close(fd_); }

 private:
  int fd_;
};

}  // namespace

std::string WithoutCarriageReturns(std::string_view raw) {
  std::string line(raw);
  line.erase(std::remove(line.begin(), line.end(), '\r'), line.end());
  return line;
}

std::optional<std::string> ScriptLineReader::Next() {
  const int fd = open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
  if (fd < 0) return std::nullopt;
  FileCloser closer(fd);
  struct stat info {};
  if (fstat(fd, &info) != 0) return std::nullopt;
  const FileIdentity identity{static_cast<std::uint64_t>(info.st_dev),
                              static_cast<std::uint64_t>(info.st_ino)};
  if (!identity_) identity_ = identity;
  if (identity != *identity_) return std::nullopt;
  std::string raw;
  char buffer[kChunk];
  while (true) {
    const ssize_t n = pread(fd, buffer, sizeof buffer, static_cast<off_t>(offset_ + raw.size()));
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) break;  // end of file, or a read error, which ends the script as well
    const std::string_view chunk(buffer, static_cast<std::size_t>(n));
    const std::size_t newline = chunk.find('\n');
    if (newline != std::string_view::npos) {
      raw.append(chunk.substr(0, newline));
      offset_ += raw.size() + 1;
      return WithoutCarriageReturns(raw);
    }
    raw.append(chunk);
  }
  if (raw.empty()) return std::nullopt;
  offset_ += raw.size();  // a last line without a line end
  return WithoutCarriageReturns(raw);
}

}  // namespace wavforge::cmd

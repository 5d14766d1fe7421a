#include "cmd/output.h"

#include <unistd.h>

#include <cerrno>

namespace wavforge::cmd {
namespace {

void WriteAll(int fd, std::string_view text) {
  while (!text.empty()) {
    const ssize_t n = write(fd, text.data(), text.size());
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return;  // a closed or full handle loses the text, as on Windows
    text.remove_prefix(static_cast<std::size_t>(n));
  }
}

}  // namespace

void WriteOutput(std::string_view text) {
  WriteAll(STDOUT_FILENO, text);
}
void WriteError(std::string_view text) {
  WriteAll(STDERR_FILENO, text);
}

}  // namespace wavforge::cmd

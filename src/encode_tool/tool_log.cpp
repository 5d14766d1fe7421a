#include "encode_tool/tool_log.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>

namespace wavforge::encode_tool {

ToolLog::ToolLog(const std::string& path, platform::Clock& clock) : clock_(clock) {
  std::error_code error;
  const auto folder = std::filesystem::path(path).parent_path();
  if (!folder.empty() && !std::filesystem::exists(folder, error)) {
    std::filesystem::create_directories(folder, error);
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
  }
  fd_ = open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
  if (fd_ < 0) fd_ = dup(STDERR_FILENO);
}

ToolLog::~ToolLog() {
  if (fd_ >= 0) close(fd_);
}

void ToolLog::Line(const std::string& text) {
  const platform::LocalTime now = clock_.Now();
  char stamp[32];
  std::snprintf(stamp, sizeof stamp, "%04d-%02d-%02d %02d:%02d:%02d ", now.year, now.month, now.day,
                now.hour, now.minute, now.second);
  // One write, so lines of tools running side by side never interleave.
  const std::string line = stamp + std::string("wavforge-encode: ") + text + "\n";
  [[maybe_unused]] const ssize_t n = write(fd_, line.data(), line.size());
}

}  // namespace wavforge::encode_tool

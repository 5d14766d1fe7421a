#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace testing_support {

// A program started in the background with extra environment variables, its stderr going to
// a file. Killed and reaped at the end unless it ended before.
class BackgroundProcess {
 public:
  BackgroundProcess(const std::vector<std::string>& argv, const std::vector<std::string>& env,
                    const std::filesystem::path& err_file = "/dev/null");
  ~BackgroundProcess();
  BackgroundProcess(const BackgroundProcess&) = delete;
  BackgroundProcess& operator=(const BackgroundProcess&) = delete;

  pid_t Pid() const { return pid_; }
  // True while it runs (it is not reaped).
  bool Running();
  // Its exit code once it ended within the time; nothing otherwise.
  std::optional<int> WaitForExit(std::chrono::milliseconds timeout);

 private:
  pid_t pid_ = -1;
  std::optional<int> status_;
};

// Waits until the file holds the text; false when the time ran out first.
bool WaitForFileText(const std::filesystem::path& file, const std::string& text,
                     std::chrono::milliseconds timeout);

}  // namespace testing_support

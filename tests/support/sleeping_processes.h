#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace testing_support {

// Copies of sleep running under another name (through a link of that name in folder), as many
// as asked, until Stop or the end: programs that look like ours or like the tools by name only.
class SleepingProcesses {
 public:
  SleepingProcesses(const std::filesystem::path& folder, const std::string& name, int count);
  ~SleepingProcesses() { Stop(); }
  SleepingProcesses(const SleepingProcesses&) = delete;
  SleepingProcesses& operator=(const SleepingProcesses&) = delete;

  pid_t Pid(std::size_t index) const { return pids_.at(index); }
  // Kills and reaps them all.
  void Stop();

 private:
  std::vector<pid_t> pids_;
};

}  // namespace testing_support

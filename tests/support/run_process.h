#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace testing_support {

struct ProcessResult {
  int exit_code = -1;  // the exit status, or 128 plus the signal that ended it
  int signal = 0;      // the signal that ended it, if one did
  std::string out;
  std::string err;
};

// A program started with the current environment in a folder of its own. Its output goes to
// anonymous in-memory files, never pipes, so programs it leaves running cannot hold the test
// up, and nothing appears in the folders a test inspects.
class ChildProcess {
 public:
  ChildProcess(const std::vector<std::string>& argv, const std::filesystem::path& folder);
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess();

  pid_t Pid() const { return pid_; }
  ProcessResult Wait();

 private:
  pid_t pid_ = -1;
  int out_ = -1;
  int err_ = -1;
};

// Runs a program and waits for it, collecting its output.
ProcessResult RunProcess(const std::vector<std::string>& argv,
                         const std::filesystem::path& folder = ".");

}  // namespace testing_support

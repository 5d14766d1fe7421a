#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace testing_support {

// Runs the real wavforge-cmd binary the way the program does: a separate process with its own
// current folder, output captured in files (never pipes, so programs it leaves running cannot
// hold the test up).
struct InterpreterRun {
  int exit_code = -1;  // when it exited
  int signal = 0;      // when a signal ended it
  std::string output;  // standard output
  std::string errors;  // standard error
};

class InterpreterProcess {
 public:
  InterpreterProcess(const std::vector<std::string>& arguments,
                     const std::filesystem::path& folder);
  InterpreterProcess(const InterpreterProcess&) = delete;
  InterpreterProcess& operator=(const InterpreterProcess&) = delete;
  ~InterpreterProcess();

  pid_t Pid() const { return pid_; }
  InterpreterRun Wait();

 private:
  pid_t pid_ = -1;
  std::filesystem::path output_file_;
  std::filesystem::path error_file_;
};

// Starts the interpreter and waits for it.
InterpreterRun RunInterpreter(const std::vector<std::string>& arguments,
                              const std::filesystem::path& folder);

}  // namespace testing_support

#include "cmd/interpreter_process.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>

#include "support/isolated_home.h"

namespace testing_support {

InterpreterProcess::InterpreterProcess(const std::vector<std::string>& arguments,
                                       const std::filesystem::path& folder) {
  const std::filesystem::path captures = MakeTempFolder("cmd-run-");
  output_file_ = captures / "out";
  error_file_ = captures / "err";
  std::vector<std::string> argv = {WAVFORGE_CMD_PATH};
  argv.insert(argv.end(), arguments.begin(), arguments.end());
  std::vector<char*> raw;
  for (std::string& argument : argv) raw.push_back(argument.data());
  raw.push_back(nullptr);
  pid_ = fork();
  if (pid_ < 0) throw std::runtime_error("fork failed");
  if (pid_ == 0) {
    const int in = open("/dev/null", O_RDONLY);
    const int out = open(output_file_.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    const int err = open(error_file_.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (in < 0 || out < 0 || err < 0 || chdir(folder.c_str()) != 0) _exit(120);
    dup2(in, 0);
    dup2(out, 1);
    dup2(err, 2);
    execv(raw[0], raw.data());
    _exit(121);
  }
}

InterpreterProcess::~InterpreterProcess() {
  if (pid_ > 0) Wait();
}

InterpreterRun InterpreterProcess::Wait() {
  InterpreterRun run;
  int status = 0;
  while (waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
  }
  pid_ = -1;
  if (WIFEXITED(status)) run.exit_code = WEXITSTATUS(status);
  if (WIFSIGNALED(status)) run.signal = WTERMSIG(status);
  run.output = ReadFile(output_file_);
  run.errors = ReadFile(error_file_);
  return run;
}

InterpreterRun RunInterpreter(const std::vector<std::string>& arguments,
                              const std::filesystem::path& folder) {
  InterpreterProcess process(arguments, folder);
  return process.Wait();
}

}  // namespace testing_support

#include "support/run_process.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>

namespace testing_support {
namespace {

std::string ReadAll(int fd) {
  std::string text;
  char buffer[4096];
  ssize_t n = 0;
  for (off_t at = 0; (n = pread(fd, buffer, sizeof buffer, at)) > 0; at += n) {
    text.append(buffer, static_cast<std::size_t>(n));
  }
  close(fd);
  return text;
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& argv,
                           const std::filesystem::path& folder)
    : out_(memfd_create("out", 0)), err_(memfd_create("err", 0)) {
  std::vector<char*> args;
  for (const auto& arg : argv) args.push_back(const_cast<char*>(arg.c_str()));
  args.push_back(nullptr);
  if (out_ < 0 || err_ < 0 || (pid_ = fork()) < 0) throw std::runtime_error("cannot start");
  if (pid_ == 0) {
    const int in = open("/dev/null", O_RDONLY);
    if (in < 0 || chdir(folder.c_str()) != 0) _exit(120);
    dup2(in, 0);
    dup2(out_, 1);
    dup2(err_, 2);
    execv(args[0], args.data());
    _exit(121);
  }
}

ChildProcess::~ChildProcess() {
  if (pid_ > 0) Wait();
}

ProcessResult ChildProcess::Wait() {
  ProcessResult result;
  int status = 0;
  while (waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
  }
  pid_ = -1;
  if (WIFEXITED(status)) result.exit_code = WEXITSTATUS(status);
  if (WIFSIGNALED(status)) {
    result.signal = WTERMSIG(status);
    result.exit_code = 128 + result.signal;
  }
  result.out = ReadAll(out_);
  result.err = ReadAll(err_);
  return result;
}

ProcessResult RunProcess(const std::vector<std::string>& argv,
                         const std::filesystem::path& folder) {
  return ChildProcess(argv, folder).Wait();
}

}  // namespace testing_support

#include "cmd/program_launcher.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "cmd/environment_variables.h"
#include "platform/path_rules.h"

namespace wavforge::cmd {
namespace {

bool IsExecutableFile(const std::string& path) {
  struct stat info {};
  return stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode) && access(path.c_str(), X_OK) == 0;
}

// Waits for a child, riding out signals that interrupt the wait.
int WaitFor(pid_t pid) {
  int status = 0;
  while (waitpid(pid, &status, 0) < 0) {
    if (errno != EINTR) return -1;
  }
  if (WIFEXITED(status)) return WEXITSTATUS(status);
  if (WIFSIGNALED(status)) return 128 + WTERMSIG(status);
  return -1;
}

// In the child: only async-signal-safe calls until exec. Reports an exec failure through the
// close-on-exec pipe.
[[noreturn]] void ExecChild(const char* path, char* const* argv, const LaunchOptions& options,
                            int report_fd) {
  if (options.niceness) setpriority(PRIO_PROCESS, 0, *options.niceness);
  if (!options.folder.empty() && chdir(options.folder.c_str()) != 0) {
    const int error = errno;
    [[maybe_unused]] const ssize_t n = write(report_fd, &error, sizeof error);
    _exit(127);
  }
  execv(path, argv);
  const int error = errno;
  [[maybe_unused]] const ssize_t n = write(report_fd, &error, sizeof error);
  _exit(127);
}

}  // namespace

std::optional<std::string> FindProgram(const std::string& name) {
  if (name.empty()) return std::nullopt;
  if (name.find(platform::kPathSeparator) != std::string::npos) {
    return IsExecutableFile(name) ? std::optional<std::string>(name) : std::nullopt;
  }
  // As the Windows interpreter does, the current folder comes before PATH: job scripts run in
  // the program folder, so the tools installed beside the program are found by bare name.
  if (IsExecutableFile(name)) return "./" + name;
  const std::string search = FindVariable(SnapshotEnvironment(), "PATH").value_or("");
  std::size_t start = 0;
  while (start <= search.size()) {
    std::size_t end = search.find(platform::kPathListSeparator, start);
    if (end == std::string::npos) end = search.size();
    const std::string folder = search.substr(start, end - start);
    if (!folder.empty()) {
      std::string candidate = folder;
      if (candidate.back() != platform::kPathSeparator) candidate += platform::kPathSeparator;
      candidate += name;
      if (IsExecutableFile(candidate)) return candidate;
    }
    start = end + 1;
  }
  return std::nullopt;
}

std::optional<int> LaunchProgram(const std::string& path, const std::vector<std::string>& argv,
                                 const LaunchOptions& options) {
  std::vector<char*> raw;
  raw.reserve(argv.size() + 1);
  for (const std::string& argument : argv) raw.push_back(const_cast<char*>(argument.c_str()));
  raw.push_back(nullptr);

  int report[2];
  if (pipe2(report, O_CLOEXEC) != 0) return std::nullopt;
  const pid_t pid = fork();
  if (pid < 0) {
    close(report[0]);
    close(report[1]);
    return std::nullopt;
  }
  if (pid == 0) {
    close(report[0]);
    if (options.wait) ExecChild(path.c_str(), raw.data(), options, report[1]);
    // Not waiting: a middle process starts the program and ends at once, so the program is
    // adopted by init and reaped there.
    const pid_t program = fork();
    if (program == 0) ExecChild(path.c_str(), raw.data(), options, report[1]);
    _exit(program < 0 ? 127 : 0);
  }
  close(report[1]);
  int exec_error = 0;
  ssize_t got;
  do {
    got = read(report[0], &exec_error, sizeof exec_error);
  } while (got < 0 && errno == EINTR);
  close(report[0]);
  const int status = WaitFor(pid);
  if (got > 0 || status < 0) return std::nullopt;
  return options.wait ? status : 0;
}

}  // namespace wavforge::cmd

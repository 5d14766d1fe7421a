#include "platform/posix/posix_processes.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "platform/command_line.h"

extern char** environ;

namespace platform::posix {
namespace {

// Below-normal priority, as the job scripts have always run.
constexpr int kBelowNormal = 10;

bool IsLink(const std::string& text) {
  return text.find("://") != std::string::npos || text.rfind("mailto:", 0) == 0;
}

}  // namespace

void LaunchDetached(const std::vector<std::string>& argv, const std::string& folder, int nice,
                    bool hidden) {
  if (argv.empty()) return;
  // Everything the child needs is prepared before fork: after it only async-signal-safe calls.
  std::vector<char*> args;
  for (const auto& arg : argv) args.push_back(const_cast<char*>(arg.c_str()));
  args.push_back(nullptr);
  const std::string program = argv[0];

  const pid_t child = fork();
  if (child < 0) return;
  if (child == 0) {
    setsid();
    // The grandchild runs the program; this child ends at once, so nothing is left to wait for.
    if (fork() != 0) _exit(0);
    if (nice != 0) setpriority(PRIO_PROCESS, 0, nice);
    if (chdir(folder.c_str()) != 0) _exit(127);
    if (hidden) {
      const int null = open("/dev/null", O_RDWR);
      if (null >= 0) {
        dup2(null, 0);
        dup2(null, 1);
        dup2(null, 2);
        if (null > 2) close(null);
      }
    }
    if (program.find('/') != std::string::npos) {
      execve(program.c_str(), args.data(), environ);
    } else {
      execvpe(program.c_str(), args.data(), environ);
    }
    _exit(127);
  }
  int status = 0;
  waitpid(child, &status, 0);
}

void PosixProcesses::StartScript(const std::string& command_line, int show_state) {
  // The job passes the script's path unquoted; a line that is no file is split as Windows does.
  std::vector<std::string> argv = {program_folder_ + "/wavforge-cmd"};
  std::error_code error;
  if (std::filesystem::is_regular_file(command_line, error)) {
    argv.push_back(command_line);
  } else {
    for (auto& part : SplitCommandLine(command_line)) argv.push_back(std::move(part));
  }
  LaunchDetached(argv, program_folder_, kBelowNormal, show_state == 0);
}

void PosixProcesses::ShellExecute(const std::string& file, const std::string& parameters,
                                  const std::string& directory, int show_state) {
  const std::string folder = directory.empty() ? program_folder_ : directory;
  std::error_code error;
  const bool document =
      std::filesystem::is_regular_file(file, error) && access(file.c_str(), X_OK) != 0;
  if (IsLink(file) || document) {
    LaunchDetached({"xdg-open", file}, folder, 0, true);
    return;
  }
  if (file == "iexplore" && IsLink(parameters)) {
    LaunchDetached({"xdg-open", parameters}, folder, 0, true);
    return;
  }
  std::vector<std::string> argv = {file};
  for (auto& part : SplitCommandLine(parameters)) argv.push_back(std::move(part));
  LaunchDetached(argv, folder, 0, show_state == 0);
}

bool PosixProcesses::CanElevate() const {
  if (geteuid() == 0) return false;
  const char* path = std::getenv("PATH");
  std::stringstream folders(path == nullptr ? "" : path);
  std::string folder;
  while (std::getline(folders, folder, ':')) {
    if (folder.empty()) continue;
    if (access((folder + "/pkexec").c_str(), X_OK) == 0) return true;
  }
  return false;
}

}  // namespace platform::posix

#include "support/sleeping_processes.h"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <stdexcept>

extern char** environ;

namespace testing_support {

SleepingProcesses::SleepingProcesses(const std::filesystem::path& folder, const std::string& name,
                                     int count) {
  const std::filesystem::path link = folder / name;
  std::filesystem::create_directories(folder);
  if (!std::filesystem::is_symlink(link)) std::filesystem::create_symlink("/bin/sleep", link);
  // The kernel names a process after the file it was started from, the link.
  char* const argv[] = {const_cast<char*>(name.c_str()), const_cast<char*>("infinity"), nullptr};
  for (int i = 0; i < count; ++i) {
    pid_t pid = -1;
    if (posix_spawn(&pid, link.c_str(), nullptr, nullptr, argv, environ) != 0) {
      Stop();
      throw std::runtime_error("cannot start " + link.string());
    }
    pids_.push_back(pid);
  }
}

void SleepingProcesses::Stop() {
  for (const pid_t pid : pids_) kill(pid, SIGKILL);
  for (const pid_t pid : pids_) waitpid(pid, nullptr, 0);
  pids_.clear();
}

}  // namespace testing_support

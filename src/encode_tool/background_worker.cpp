#include "encode_tool/background_worker.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>

#include "platform/posix/console_title.h"
#include "platform/posix/title_signals.h"

namespace wavforge::encode_tool {
namespace {

void DetachStandardStreams() {
  const int null = open("/dev/null", O_RDWR);
  if (null < 0) return;
  dup2(null, STDIN_FILENO);
  dup2(null, STDOUT_FILENO);
  dup2(null, STDERR_FILENO);
  if (null > STDERR_FILENO) close(null);
}

[[noreturn]] void RunWorker(const std::string& title, const std::function<void()>& wait_turn,
                            const std::function<void()>& work, int ready) {
  setsid();
  const pid_t pid = getpid();
  const std::string folder = platform::posix::ConsoleTitleFolder();
  // An ended worker must not leave its title behind, or the job would never end. The recording
  // stays under its hold name then, beside the original.
  const sigset_t previous = platform::posix::HoldEndingSignals();
  platform::posix::RemoveTitleOnEndingSignals(folder, pid);
  platform::posix::PublishConsoleTitle(folder, pid, title);
  platform::posix::RestoreSignalMask(previous);
  // A reader of the script's output must not wait for us.
  DetachStandardStreams();
  wait_turn();
  // A caller that is gone by now must not take us with it: the recording is held already.
  struct sigaction ignore {};
  struct sigaction before {};
  ignore.sa_handler = SIG_IGN;
  sigaction(SIGPIPE, &ignore, &before);
  [[maybe_unused]] const ssize_t n = write(ready, "1", 1);
  close(ready);
  sigaction(SIGPIPE, &before, nullptr);
  work();
  platform::posix::HoldEndingSignals();
  platform::posix::ClearConsoleTitle(folder, pid);
  _exit(0);
}

}  // namespace

bool RunInBackground(const std::string& title, const std::function<void()>& wait_turn,
                     const std::function<void()>& work) {
  int ready[2];
  if (pipe2(ready, O_CLOEXEC) != 0) return false;
  const pid_t child = fork();
  if (child == 0) {
    close(ready[0]);
    RunWorker(title, wait_turn, work, ready[1]);
  }
  close(ready[1]);
  // Once started, the work is the worker's alone, even if it ends before it says it is ready:
  // its encoder may already be running, and no output may be written twice.
  char byte = 0;
  ssize_t n = 0;
  while (child > 0 && (n = read(ready[0], &byte, 1)) < 0 && errno == EINTR) {
  }
  close(ready[0]);
  return child > 0;
}

}  // namespace wavforge::encode_tool

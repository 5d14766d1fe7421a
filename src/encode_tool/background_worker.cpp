#include "encode_tool/background_worker.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "platform/posix/console_title.h"

namespace wavforge::encode_tool {
namespace {

constexpr int kEndingSignals[] = {SIGTERM, SIGINT, SIGHUP};

// The title files, ready for the signal handler, which may not build strings.
char title_path[4096];
char title_temporary_path[4096];

void CopyPath(const std::string& path, char (&target)[4096]) {
  const std::size_t length = std::min(path.size(), sizeof target - 1);
  std::memcpy(target, path.data(), length);
  target[length] = '\0';
}

// An ended worker must not leave its title behind, or the job would never end. The recording
// stays under its hold name then, beside the original.
void EndOnSignal(int signal_number) {
  unlink(title_path);
  unlink(title_temporary_path);
  ::signal(signal_number, SIG_DFL);
  raise(signal_number);
}

void BlockEndingSignals(int how) {
  sigset_t ending;
  sigemptyset(&ending);
  for (const int signal_number : kEndingSignals) sigaddset(&ending, signal_number);
  sigprocmask(how, &ending, nullptr);
}

void DetachStandardStreams() {
  const int null = open("/dev/null", O_RDWR);
  if (null < 0) return;
  dup2(null, STDIN_FILENO);
  dup2(null, STDOUT_FILENO);
  dup2(null, STDERR_FILENO);
  if (null > STDERR_FILENO) close(null);
}

[[noreturn]] void RunWorker(const std::string& title, const std::function<void()>& work,
                            int ready) {
  setsid();
  const pid_t pid = getpid();
  const std::string folder = platform::posix::ConsoleTitleFolder();
  CopyPath(platform::posix::ConsoleTitlePath(folder, pid), title_path);
  CopyPath(platform::posix::ConsoleTitleTemporaryPath(folder, pid), title_temporary_path);
  BlockEndingSignals(SIG_BLOCK);
  struct sigaction action {};
  sigemptyset(&action.sa_mask);
  action.sa_handler = EndOnSignal;
  for (const int signal_number : kEndingSignals) sigaction(signal_number, &action, nullptr);
  platform::posix::PublishConsoleTitle(folder, pid, title);
  BlockEndingSignals(SIG_UNBLOCK);
  // A reader of the script's output must not wait for us.
  DetachStandardStreams();
  [[maybe_unused]] const ssize_t n = write(ready, "1", 1);
  close(ready);
  work();
  BlockEndingSignals(SIG_BLOCK);
  platform::posix::ClearConsoleTitle(folder, pid);
  _exit(0);
}

}  // namespace

bool RunInBackground(const std::string& title, const std::function<void()>& work) {
  int ready[2];
  if (pipe2(ready, O_CLOEXEC) != 0) return false;
  const pid_t child = fork();
  if (child == 0) {
    close(ready[0]);
    RunWorker(title, work, ready[1]);
  }
  close(ready[1]);
  char byte = 0;
  ssize_t n = 0;
  if (child > 0) {
    do {
      n = read(ready[0], &byte, 1);
    } while (n < 0 && errno == EINTR);
  }
  close(ready[0]);
  return n == 1;
}

}  // namespace wavforge::encode_tool

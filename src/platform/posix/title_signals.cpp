#include "platform/posix/title_signals.h"

#include <unistd.h>

#include <algorithm>
#include <cstring>

#include "platform/posix/console_title.h"

namespace platform::posix {
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

void EndOnSignal(int signal_number) {
  unlink(title_path);
  unlink(title_temporary_path);
  ::signal(signal_number, SIG_DFL);
  raise(signal_number);
}

sigset_t EndingSignals() {
  sigset_t ending;
  sigemptyset(&ending);
  for (const int signal_number : kEndingSignals) sigaddset(&ending, signal_number);
  return ending;
}

}  // namespace

void RemoveTitleOnEndingSignals(const std::string& folder, pid_t pid) {
  CopyPath(ConsoleTitlePath(folder, pid), title_path);
  CopyPath(ConsoleTitleTemporaryPath(folder, pid), title_temporary_path);
  struct sigaction action {};
  sigemptyset(&action.sa_mask);
  action.sa_handler = EndOnSignal;
  for (const int signal_number : kEndingSignals) sigaction(signal_number, &action, nullptr);
}

sigset_t HoldEndingSignals() {
  const sigset_t ending = EndingSignals();
  sigset_t previous;
  sigprocmask(SIG_BLOCK, &ending, &previous);
  return previous;
}

void RestoreSignalMask(const sigset_t& previous) {
  sigprocmask(SIG_SETMASK, &previous, nullptr);
}

}  // namespace platform::posix

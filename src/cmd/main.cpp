// wavforge-cmd: runs the encoder's batch scripts on this platform.

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "cmd/interpreter.h"
#include "cmd/invocation.h"
#include "cmd/output.h"
#include "cmd/script_file.h"
#include "platform/posix/console_title.h"

namespace {

using platform::posix::ClearConsoleTitle;
using platform::posix::PublishConsoleTitle;

// Fixed at start: the script may change the variables the folder derives from.
std::string title_folder;

// The title files, ready for the signal handler, which may not build strings.
char title_path[4096];
char title_temporary_path[4096];

constexpr int kEndingSignals[] = {SIGTERM, SIGINT, SIGHUP};

void CopyPath(const std::string& path, char (&target)[4096]) {
  const std::size_t length = std::min(path.size(), sizeof target - 1);
  std::memcpy(target, path.data(), length);
  target[length] = '\0';
}

// An ended interpreter must not leave a title behind, or the program would wait for a job that
// is gone.
void EndOnSignal(int signal_number) {
  unlink(title_path);
  unlink(title_temporary_path);
  ::signal(signal_number, SIG_DFL);
  raise(signal_number);
}

// A reader that went away must not kill the run; the write just fails. A handler (not SIG_IGN)
// so the programs we start get the default back.
void IgnoreBrokenPipe(int) {}

void InstallSignalHandlers() {
  struct sigaction action {};
  sigemptyset(&action.sa_mask);
  action.sa_handler = EndOnSignal;
  for (const int signal_number : kEndingSignals) sigaction(signal_number, &action, nullptr);
  action.sa_handler = IgnoreBrokenPipe;
  sigaction(SIGPIPE, &action, nullptr);
}

// Publishes a title with the ending signals held back, so no half-written file stays behind.
void Publish(pid_t pid, const std::string& title) {
  sigset_t ending;
  sigset_t previous;
  sigemptyset(&ending);
  for (const int signal_number : kEndingSignals) sigaddset(&ending, signal_number);
  sigprocmask(SIG_BLOCK, &ending, &previous);
  PublishConsoleTitle(title_folder, pid, title);
  sigprocmask(SIG_SETMASK, &previous, nullptr);
}

}  // namespace

int main(int argc, char** argv) {
  using namespace wavforge::cmd;
  const Invocation invocation = ParseInvocation(std::vector<std::string>(argv + 1, argv + argc));
  if (!invocation.error.empty()) {
    WriteError(invocation.error + "\n");
    return 1;
  }
  const ScriptCheck script = invocation.command_mode ? ScriptCheck{ScriptSafety::kSafe, {}}
                                                     : CheckScript(invocation.script);
  if (script.safety == ScriptSafety::kMissing) {
    WriteError("'" + invocation.script +
               "' is not recognized as an internal or external command,\n"
               "operable program or batch file.\n");
    return 1;
  }
  if (script.safety == ScriptSafety::kUnsafe) {
    WriteError("wavforge-cmd: not running '" + invocation.script +
               "': a script must be a regular file of yours that nobody else may change.\n");
    return 1;
  }

  const pid_t pid = getpid();
  title_folder = platform::posix::ConsoleTitleFolder();
  CopyPath(platform::posix::ConsoleTitlePath(title_folder, pid), title_path);
  CopyPath(platform::posix::ConsoleTitleTemporaryPath(title_folder, pid), title_temporary_path);
  ClearConsoleTitle(title_folder, pid);  // a process that had our id before may have left one
  InstallSignalHandlers();

  ExpansionContext context;
  context.mode = invocation.command_mode ? ExpansionMode::kCommandLine : ExpansionMode::kScript;
  context.script_path = invocation.script;
  context.arguments = invocation.script_arguments;
  InterpreterState state;
  state.echo_on = !invocation.echo_off;
  state.on_title = [pid](const std::string& title) { Publish(pid, title); };
  Interpreter interpreter(std::move(context), std::move(state));

  int exit_code = 0;
  if (invocation.command_mode) {
    interpreter.RunLine(invocation.command_line);
    exit_code = interpreter.ExitCode();
  } else {
    exit_code = RunScript(invocation.script, script.identity, interpreter);
  }
  ClearConsoleTitle(title_folder, pid);
  return exit_code;
}

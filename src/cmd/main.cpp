// wavforge-cmd: runs the encoder's batch scripts on this platform.

#include <signal.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "cmd/interpreter.h"
#include "cmd/invocation.h"
#include "cmd/output.h"
#include "cmd/script_file.h"
#include "platform/posix/console_title.h"
#include "platform/posix/title_signals.h"

namespace {

using platform::posix::ClearConsoleTitle;
using platform::posix::PublishConsoleTitle;

// Fixed at start: the script may change the variables the folder derives from.
std::string title_folder;

// A reader that went away must not kill the run; the write just fails. A handler (not SIG_IGN)
// so the programs we start get the default back.
void IgnoreBrokenPipe(int) {}

void InstallSignalHandlers(pid_t pid) {
  platform::posix::RemoveTitleOnEndingSignals(title_folder, pid);
  struct sigaction action {};
  sigemptyset(&action.sa_mask);
  action.sa_handler = IgnoreBrokenPipe;
  sigaction(SIGPIPE, &action, nullptr);
}

// Publishes a title with the ending signals held back, so no half-written file stays behind.
void Publish(pid_t pid, const std::string& title) {
  const sigset_t previous = platform::posix::HoldEndingSignals();
  PublishConsoleTitle(title_folder, pid, title);
  platform::posix::RestoreSignalMask(previous);
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
  ClearConsoleTitle(title_folder, pid);  // a process that had our id before may have left one
  InstallSignalHandlers(pid);

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

#include "cmd/start_command.h"

#include "cmd/output.h"
#include "cmd/program_launcher.h"
#include "cmd/start_options.h"
#include "platform/command_line.h"

namespace wavforge::cmd {

void RunStartCommand(std::string_view rest, InterpreterState& state) {
  const StartOptions options = ParseStartOptions(rest);
  if (!options.error.empty()) {
    WriteError(options.error + "\n");
    state.error_level = 1;
    return;
  }
  const std::vector<std::string> argv = platform::SplitCommandLine(options.command_line);
  if (argv.empty()) return;  // start alone opens a new console, which has no meaning here
  const std::optional<std::string> program = FindProgram(argv.front());
  const std::optional<int> status =
      program ? LaunchProgram(
                    *program, argv,
                    {.wait = options.wait, .niceness = options.niceness, .folder = options.folder})
              : std::nullopt;
  if (!status) {
    WriteError("The system cannot find the file " + argv.front() + ".\n");
    state.error_level = 9059;
    return;
  }
  state.error_level = *status;
}

}  // namespace wavforge::cmd

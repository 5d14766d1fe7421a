#include "cmd/external_command.h"

#include <string>

#include "cmd/output.h"
#include "cmd/program_launcher.h"
#include "platform/command_line.h"

namespace wavforge::cmd {

void RunExternalCommand(std::string_view command_line, InterpreterState& state) {
  const std::vector<std::string> argv = platform::SplitCommandLine(command_line);
  if (argv.empty()) return;
  const std::optional<std::string> program = FindProgram(argv.front());
  const std::optional<int> status = program ? LaunchProgram(*program, argv, {}) : std::nullopt;
  if (!status) {
    // Appended rather than "'" + temporary, which GCC 12 falsely flags (-Wrestrict) at -O3.
    std::string message = "'";
    message += platform::ProgramNameAsWritten(command_line);
    message +=
        "' is not recognized as an internal or external command,\n"
        "operable program or batch file.\n";
    WriteError(message);
    state.error_level = 9009;
    return;
  }
  state.error_level = *status;
}

}  // namespace wavforge::cmd

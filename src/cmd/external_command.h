#pragma once

#include <string_view>

#include "cmd/interpreter_state.h"

namespace wavforge::cmd {

// Runs a command that is no internal one: its line is split the way the tool's C runtime would
// split it under Windows, the program is looked up on PATH, and the interpreter waits for it.
// A program that cannot be found is reported as cmd.exe reports it, and the run goes on.
void RunExternalCommand(std::string_view command_line, InterpreterState& state);

}  // namespace wavforge::cmd

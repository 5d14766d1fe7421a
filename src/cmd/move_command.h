#pragma once

#include <string_view>

#include "cmd/interpreter_state.h"

namespace wavforge::cmd {

// move / ren / rename: moves one file onto a new name, replacing a file that has that name
// (scripts run unattended, so there is nobody to ask). The source is found ignoring letter case
// when no file has its exact name. The normalising step needs it to put
// the normalised recording in place of the source.
void RunMoveCommand(std::string_view rest, InterpreterState& state);

}  // namespace wavforge::cmd

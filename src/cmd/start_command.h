#pragma once

#include <string_view>

#include "cmd/interpreter_state.h"

namespace wavforge::cmd {

// start: runs a program without waiting for it (unless /wait), at the priority and in the
// folder asked for.
void RunStartCommand(std::string_view rest, InterpreterState& state);

}  // namespace wavforge::cmd

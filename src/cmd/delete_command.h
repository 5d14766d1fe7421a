#pragma once

#include <string_view>

#include "cmd/interpreter_state.h"

namespace wavforge::cmd {

// del / erase: deletes the files its names match. A name may be quoted and may hold * and ? in
// its last part; a folder's name deletes the files in it (never subfolders, never folders);
// /s repeats the name in every subfolder. Names compare ignoring letter case, an exact name
// first. Names that match nothing are passed over silently.
void RunDeleteCommand(std::string_view rest, InterpreterState& state);

}  // namespace wavforge::cmd

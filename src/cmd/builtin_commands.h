#pragma once

#include <string_view>

#include "cmd/interpreter_state.h"

namespace wavforge::cmd {

// An internal command. rest is the text after the command's name, starting at the character
// that ended the name (a blank, or "." in "echo.", or "/" in "del/q").
using BuiltinCommand = void (*)(std::string_view rest, InterpreterState& state);

// The internal command of that name (any letter case), or nullptr for a program to run:
// echo, rem, title, set, exit, del, erase, start.
BuiltinCommand FindBuiltin(std::string_view name);

}  // namespace wavforge::cmd

#pragma once

#include <string>
#include <string_view>

#include "cmd/variable_lookup.h"

namespace wavforge::cmd {

// The process environment, which the interpreter changes with set and hands to every program
// it starts.
VariableList SnapshotEnvironment();

// Sets a variable; an existing one whose name differs only in letter case is replaced rather
// than joined by a second spelling. An empty value removes the variable, as set does.
void SetEnvironmentVariable(const std::string& name, const std::string& value);

}  // namespace wavforge::cmd

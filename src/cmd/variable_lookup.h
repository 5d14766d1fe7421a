#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wavforge::cmd {

// Name and value pairs in the order the environment lists them.
using VariableList = std::vector<std::pair<std::string, std::string>>;

// Letter case ignored for ASCII letters only, which is all variable names use.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

// Finds a variable by its exact name first, then ignoring letter case, so the Windows spellings
// %Path% and %Temp% find PATH and TEMP.
std::optional<std::string> FindVariable(const VariableList& variables, std::string_view name);

}  // namespace wavforge::cmd

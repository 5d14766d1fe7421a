#pragma once

#include <string_view>

namespace wavforge::cmd {

// Unbuffered writes to the current standard output and error handles, so text of the
// interpreter and of the programs it runs arrives in the order it was produced, and always
// through whatever redirection is in force.
void WriteOutput(std::string_view text);
void WriteError(std::string_view text);

}  // namespace wavforge::cmd

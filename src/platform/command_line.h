#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform {

// Splits a command line into argv the way the Microsoft C runtime does, so a tool sees here the
// arguments it would see under Windows:
// - the program name ends at the first space or tab outside double quotes; its quotes only
//   group, and backslashes in it are plain characters;
// - after it, spaces and tabs separate arguments and double quotes group;
// - 2n backslashes before a quote give n backslashes and the quote opens or closes a group;
//   2n+1 backslashes before a quote give n backslashes and a literal quote;
// - "" inside a group gives a literal quote and the group goes on;
// - backslashes not followed by a quote are literal.
// Leading spaces and tabs are skipped; an empty line gives no arguments.
std::vector<std::string> SplitCommandLine(std::string_view command_line);

// The program name as it is written at the start of command_line, quotes included (what the
// interpreter names in its messages), after leading spaces and tabs.
std::string_view ProgramNameAsWritten(std::string_view command_line);

}  // namespace platform

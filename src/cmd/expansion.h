#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wavforge::cmd {

// A script line and a /c command line expand percent signs differently, as cmd.exe does.
enum class ExpansionMode {
  // %%, %0-%9, %~0-%~9, %* and %NAME%; an undefined NAME and a lone % vanish.
  kScript,
  // Only %NAME%; an undefined one stays as written, %% and digits are plain text.
  kCommandLine,
};

struct ExpansionContext {
  ExpansionMode mode = ExpansionMode::kScript;
  // %0: the script path as it was given.
  std::string script_path;
  // %1 and on: the arguments as the script sees them (quotes included).
  std::vector<std::string> arguments;
  // The value of a variable, nothing when it is not defined.
  std::function<std::optional<std::string>(std::string_view)> lookup;
};

// Replaces the percent references of one line.
std::string ExpandPercents(std::string_view line, const ExpansionContext& context);

}  // namespace wavforge::cmd

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wavforge {

// Replaces "%1" by the first argument, then "%2" by the second, and so on, each over the
// whole result of the previous step, so a value holding "%3" is filled in turn.
std::string SubstituteArgs(std::string_view command_template,
                           const std::vector<std::string>& arguments);

}  // namespace wavforge

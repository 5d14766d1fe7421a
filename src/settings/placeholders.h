#pragma once

#include <string>
#include <string_view>

#include "platform/ports.h"

namespace wavforge {

// Expands the program's placeholders (special folders, program folder, date and time parts,
// the profile name, %LF%) and then any environment variable written as %NAME%.
std::string ExpandPlaceholders(std::string_view text, const platform::Ports& ports);

}  // namespace wavforge

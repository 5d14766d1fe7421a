#pragma once

#include <string>
#include <string_view>

#include "platform/environment.h"

namespace wavforge {

// Replaces each %NAME% by the environment variable of that name. A name without a variable,
// an empty name ("%%") and a lone "%" stay as written, percent signs included.
std::string ExpandEnvironmentStrings(std::string_view text,
                                     const platform::Environment& environment);

}  // namespace wavforge

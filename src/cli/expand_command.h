#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "platform/ports.h"

namespace wavforge::cli {

// `wavforge-cli expand TEXT...`: the placeholder expansion of each text on a line of its own.
int RunExpand(const platform::Ports& ports, const std::vector<std::string>& texts,
              std::ostream& out);

}  // namespace wavforge::cli

#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "platform/ports.h"

namespace wavforge::cli {

// `wavforge-cli tags FILE...`: the tags each file gives, whether its INFO list could be read,
// and the names the job would derive from it. Creates no folder.
int RunTags(const platform::Ports& ports, const std::vector<std::string>& files, std::ostream& out,
            std::ostream& err);

}  // namespace wavforge::cli

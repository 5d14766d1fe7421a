#pragma once

#include "platform/ports.h"

namespace wavforge {

// Appends the tool folder (common application data, then the product name) to the process
// search path unless it is there already, so the job script and the tools it runs find the
// tools by their bare names.
void AddToolFolderToPath(const platform::Ports& ports);

}  // namespace wavforge

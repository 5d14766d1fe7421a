#pragma once

#include <ostream>

#include "platform/ports.h"
#include "settings/settings.h"

namespace wavforge::cli {

// Prints the settings one item a line, grouped like the files they come from.
void PrintSettings(const Settings& settings, std::ostream& out);

// `wavforge-cli settings`: loads the settings as the program does and prints them.
int RunSettings(const platform::Ports& ports, std::ostream& out);

}  // namespace wavforge::cli

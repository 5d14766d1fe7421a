#pragma once

#include <string>

#include "platform/ports.h"
#include "ui/localize_controls.h"

namespace wavforge {

// The address of the update check the program starts with, from the language file: when the
// command line asks for one, or when the automatic check is on and the next check the last one
// stored is due (or none is stored). Empty when no check is to start.
std::string StartupUpdateAddress(bool asked, bool automatic, const platform::Ports& ports,
                                 const clsLocalizeControls& language);

}  // namespace wavforge

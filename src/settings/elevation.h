#pragma once

#include <functional>
#include <string>

#include "platform/ports.h"
#include "platform/user_interface.h"
#include "ui/localize_controls.h"

namespace wavforge {

// True when the program could be restarted with administrator rights it does not have now.
bool IsNT6(const platform::Ports& ports);

// The command the shortcut beside the program runs elevated: the interpreter's switches and a
// start of the program with the parameter.
std::string ElevatedParameters(const std::string& program_folder, const std::string& parameter);

// Asks whether to restart the program elevated with the parameter; after Yes it starts the
// shortcut and closes the main window. True when it took charge of the action (whatever the
// answer), false when the caller has the rights and should go on itself.
bool RunElevated(const std::string& parameter, const platform::Ports& ports,
                 platform::UserInterface& ui, const clsLocalizeControls& language,
                 const std::function<void()>& close_main_window);

}  // namespace wavforge

#pragma once

#include <string>

namespace platform::posix {

// The folder that stands in for a Windows special-folder number, from the XDG variables and
// the user-dirs file; "" for numbers the program does not use.
std::string XdgFolderFor(int folder_id);

}  // namespace platform::posix

#pragma once

#include <string>

#include "platform/file_system.h"

namespace wavforge {

// The folder of the local help pages, ending in the path separator: the first existing one of
// HTML<major>/<language>, Help<major>/<language>, HTML/<language> and Help/<language> below
// the program folder, else the program folder itself.
std::string ChoosePageFolder(const platform::FileSystem& files, const std::string& program_folder,
                             const std::string& major, const std::string& language);

}  // namespace wavforge

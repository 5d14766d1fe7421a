#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wavforge {

// The files an open-file dialog answered with. The answer counts up to its first pair of
// NULs; one part is a full path, several are the folder and then the names, joined with the
// path separator as they come (a root folder that ends in a separator gives a doubled one).
std::vector<std::string> FilesFromDialogAnswer(std::string_view answer);

}  // namespace wavforge

#pragma once

#include <string>

namespace platform::posix {

// Makes sure folder is this user's alone, creating it (owner only) when missing. In a shared
// temporary folder somebody else could have made it first, or put a link there: a link, a
// non-folder or a folder of another user is refused (false). A folder of ours that others may
// enter is closed to them.
bool EnsurePrivateFolder(const std::string& folder);

}  // namespace platform::posix

#pragma once

#include <string>

namespace platform::posix {

// Makes sure folder is this user's alone, creating it (owner only) when missing. In a shared
// temporary folder somebody else could have made it first, or put a link there: a link, a
// non-folder or a folder of another user is refused (false). A folder of ours that others may
// enter is closed to them.
bool EnsurePrivateFolder(const std::string& folder);

// The folder named name that every process of this user finds: in $XDG_RUNTIME_DIR, or
// ${TMPDIR:-/tmp}/<name>-<uid> when there is no runtime folder. Not created here.
std::string UserRuntimeFolder(const std::string& name);

}  // namespace platform::posix

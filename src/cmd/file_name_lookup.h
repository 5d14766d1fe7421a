#pragma once

#include <optional>
#include <string>

namespace wavforge::cmd {

// The file a plain name (no wildcards) stands for, the way the Windows file systems the scripts
// were written for see it: the path itself when something has that exact name, else the one
// entry of its folder whose name differs from the last part only in ASCII letter case. Nothing
// when there is no such entry, or several: none of them is more the one meant than another.
// Only the last part is looked up this way; the folders must be spelt as they are.
std::optional<std::string> FindFileIgnoringCase(const std::string& path);

}  // namespace wavforge::cmd

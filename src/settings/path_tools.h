#pragma once

#include <string>
#include <string_view>

// Small text tools for paths and names that the other subsystems share.
namespace wavforge {

// The text up to (not including) its first NUL character.
std::string TrimAtNul(std::string_view text);

// The last component of a path without its extension; "" when the path has no separator or
// ends with one.
std::string PathBaseName(std::string_view path);

// Makes a value safe as a folder path: characters no file name may hold become "_", the
// platform separator survives, and outer blanks go.
std::string CleanPathChars(std::string_view value);

// Like CleanPathChars, and the platform separator becomes "_" as well: a single file name.
std::string CleanFileName(std::string_view value);

}  // namespace wavforge

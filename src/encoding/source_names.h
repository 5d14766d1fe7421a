#pragma once

#include <string>
#include <string_view>

// Names derived from the path of a source recording, which ends in ".wav" in any letter case.
namespace wavforge {

// The path without its last four characters (the extension); "" when it is shorter.
std::string BasePath(std::string_view source);

// The path up to and including its last separator; "" when it has none.
std::string SourceFolder(std::string_view source);

// The part after the last separator (the whole path when there is none) without its last four
// characters; "" when that part is shorter.
std::string FileTitle(std::string_view source);

}  // namespace wavforge

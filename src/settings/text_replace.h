#pragma once

#include <string>
#include <string_view>

namespace wavforge {

// Replaces every occurrence left to right without overlap; the inserted text is not searched
// again by the same call.
std::string ReplaceAll(std::string_view text, std::string_view needle,
                       std::string_view replacement);

// The same, with the needle matched ignoring ASCII letter case.
std::string ReplaceAllIgnoreCase(std::string_view text, std::string_view needle,
                                 std::string_view replacement);

std::string ToLowerAscii(std::string_view text);

}  // namespace wavforge

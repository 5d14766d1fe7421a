#pragma once

#include <string_view>

namespace wavforge::cmd {

bool HasWildcards(std::string_view name);

// Matches a file name against a del pattern: "*" stands for any run of characters (dots
// included), "?" for one character, everything else for itself with its letter case. As on
// Windows, a pattern ending in ".*" also matches the name without that extension, so "song.*"
// matches "song" as well as "song.wav".
bool MatchesWildcard(std::string_view pattern, std::string_view name);

}  // namespace wavforge::cmd

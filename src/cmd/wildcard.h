#pragma once

#include <string_view>

namespace wavforge::cmd {

bool HasWildcards(std::string_view name);

// Matches a file name against a del pattern: "*" stands for any run of characters (dots
// included), "?" for one character, everything else for itself ignoring ASCII letter case, as
// the Windows file systems the scripts were written for compare names. As on Windows, a pattern
// ending in ".*" also matches the name without that extension, so "song.*" matches "song" as
// well as "SONG.WAV".
bool MatchesWildcard(std::string_view pattern, std::string_view name);

}  // namespace wavforge::cmd

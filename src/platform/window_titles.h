#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace platform {

// A window title matches as Windows matches one when it looks a window up: the whole title,
// ASCII letters in either case.
bool IsOneOfTitles(std::string_view title, std::span<const char* const> titles);

// The length in bytes of the longest of titles: a window whose title is longer matches none.
std::size_t LongestTitle(std::span<const char* const> titles);

}  // namespace platform

#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace wavforge {

// A text that reads as a number (blanks around it allowed), rounded to a whole 32-bit number
// with halves to even; nothing for other texts and numbers out of range.
std::optional<std::int32_t> WholeNumber(std::string_view text);

}  // namespace wavforge

#pragma once

#include <string>
#include <string_view>

namespace wavforge {

// Turns the bytes of an INFO chunk into UTF-8 text. The text ends at its first NUL: INFO
// texts carry a terminating one, and a NUL can be part of neither a file name nor a script
// line. Bytes that are valid UTF-8 stay as they are; anything else was written in
// Windows-1252, the code page of the recorders, and is converted.
std::string DecodeTagText(std::string_view raw);

}  // namespace wavforge

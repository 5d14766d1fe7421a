#pragma once

#include <string_view>

namespace wavforge {

// Whether the line del "<base_path>.*" that follows a source's commands removes path: a file
// in the same folder whose name, letter case ignored, is the base name followed by a dot and
// anything, or the bare base name (the interpreter's "name.*" also matches "name").
bool DeleteLineReaches(std::string_view base_path, std::string_view path);

}  // namespace wavforge

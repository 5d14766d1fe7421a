#pragma once

// The names of the program's version record; file names and registry keys derive from them.
namespace wavforge {

inline constexpr const char* kProductName = "Larkspur";
inline constexpr const char* kCompanyName = "Larkspur Audio";

}  // namespace wavforge

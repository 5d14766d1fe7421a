#pragma once

#include <string>
#include <string_view>

namespace wavforge {

// The version as the window shows it: major, minor and revision in plain decimal, so a
// version written 2.04.0069 shows as 2.4.69. Missing parts count as 0; a part stops at its
// first non-digit.
std::string VersionLabel(std::string_view dotted_version);

// The major version alone, in plain decimal.
std::string MajorVersion(std::string_view dotted_version);

}  // namespace wavforge

#include "shell/version_label.h"

#include <array>
#include <cstdint>

namespace wavforge {

std::string VersionLabel(std::string_view dotted_version) {
  std::array<std::uint64_t, 3> parts{};
  std::size_t part = 0;
  bool in_number = true;
  for (const char c : dotted_version) {
    if (c == '.') {
      if (++part == parts.size()) break;
      in_number = true;
    } else if (in_number && c >= '0' && c <= '9') {
      parts[part] = parts[part] * 10 + static_cast<std::uint64_t>(c - '0');
    } else {
      in_number = false;
    }
  }
  return std::to_string(parts[0]) + "." + std::to_string(parts[1]) + "." + std::to_string(parts[2]);
}

std::string MajorVersion(std::string_view dotted_version) {
  const std::string label = VersionLabel(dotted_version);
  return label.substr(0, label.find('.'));
}

}  // namespace wavforge

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// How registry key paths and value names are compared; shared by every implementation of the
// registry port so they all agree on which names are the same.
namespace platform {

inline constexpr char kKeySeparator = '\\';

// The form in which names are compared: ASCII letters in lower case, other bytes unchanged.
inline std::string FoldRegistryName(std::string_view name) {
  std::string folded(name);
  for (char& c : folded) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return folded;
}

// The parts of a key path, none for the root itself (the empty path); nothing when a part is
// empty, which no key can be named by.
inline std::optional<std::vector<std::string>> SplitKeyPath(std::string_view path) {
  std::vector<std::string> parts;
  if (path.empty()) return parts;
  std::size_t start = 0;
  while (true) {
    const std::size_t end = path.find(kKeySeparator, start);
    const std::string_view part = path.substr(start, end - start);
    if (part.empty()) return std::nullopt;
    parts.emplace_back(part);
    if (end == std::string_view::npos) return parts;
    start = end + 1;
  }
}

}  // namespace platform

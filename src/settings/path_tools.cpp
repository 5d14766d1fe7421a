#include "settings/path_tools.h"

#include <algorithm>

#include "platform/path_rules.h"

namespace wavforge {

std::string TrimAtNul(std::string_view text) {
  return std::string(text.substr(0, text.find('\0')));
}

std::string PathBaseName(std::string_view path) {
  const auto separator = path.rfind(platform::kPathSeparator);
  if (separator == std::string_view::npos) return {};
  const std::string_view last = path.substr(separator + 1);
  const auto dot = path.rfind('.');
  if (!last.empty() && dot != std::string_view::npos && dot > separator) {
    return std::string(path.substr(separator + 1, dot - separator - 1));
  }
  return std::string(last);
}

std::string CleanPathChars(std::string_view value) {
  std::string clean(value);
  for (char& c : clean) {
    switch (c) {
      case platform::kOtherSlash:
      case ':':
      case '*':
      case '?':
      case '"':
      case '<':
      case '>':
      case '|':
        c = '_';
        break;
      default:
        break;
    }
  }
  const auto first = clean.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return clean.substr(first, clean.find_last_not_of(' ') - first + 1);
}

std::string CleanFileName(std::string_view value) {
  std::string clean = CleanPathChars(value);
  std::replace(clean.begin(), clean.end(), platform::kPathSeparator, '_');
  return clean;
}

}  // namespace wavforge

#include "settings/text_replace.h"

#include <algorithm>

namespace wavforge {
namespace {

char LowerAscii(char c) {
  return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

template <typename Equal>
std::string Replace(std::string_view text, std::string_view needle, std::string_view replacement,
                    Equal equal) {
  if (needle.empty()) return std::string(text);
  std::string result;
  result.reserve(text.size());
  auto position = text.begin();
  while (true) {
    const auto found = std::search(position, text.end(), needle.begin(), needle.end(), equal);
    result.append(position, found);
    if (found == text.end()) break;
    result.append(replacement);
    position = found + static_cast<std::ptrdiff_t>(needle.size());
  }
  return result;
}

}  // namespace

std::string ReplaceAll(std::string_view text, std::string_view needle,
                       std::string_view replacement) {
  return Replace(text, needle, replacement, [](char a, char b) { return a == b; });
}

std::string ReplaceAllIgnoreCase(std::string_view text, std::string_view needle,
                                 std::string_view replacement) {
  return Replace(text, needle, replacement,
                 [](char a, char b) { return LowerAscii(a) == LowerAscii(b); });
}

std::string ToLowerAscii(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), LowerAscii);
  return lower;
}

}  // namespace wavforge

#include "platform/window_titles.h"

#include <algorithm>

namespace platform {
namespace {

char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerAscii(x) == LowerAscii(y); });
}

}  // namespace

bool IsOneOfTitles(std::string_view title, std::span<const char* const> titles) {
  return std::any_of(titles.begin(), titles.end(),
                     [title](const char* wanted) { return SameIgnoringCase(title, wanted); });
}

std::size_t LongestTitle(std::span<const char* const> titles) {
  std::size_t longest = 0;
  for (const char* title : titles) longest = std::max(longest, std::string_view(title).size());
  return longest;
}

}  // namespace platform

#include "encoding/tag_placeholders.h"

#include <algorithm>

namespace wavforge {
namespace {

char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Every occurrence, left to right; inserted text is not searched again.
std::string ReplaceIgnoringCase(std::string_view text, std::string_view placeholder,
                                std::string_view value) {
  const auto same = [](char a, char b) { return LowerAscii(a) == LowerAscii(b); };
  std::string result;
  auto from = text.begin();
  while (true) {
    const auto hit = std::search(from, text.end(), placeholder.begin(), placeholder.end(), same);
    if (hit == text.end()) break;
    result.append(from, hit);
    result.append(value);
    from = hit + static_cast<std::ptrdiff_t>(placeholder.size());
  }
  result.append(from, text.end());
  return result;
}

}  // namespace

std::string ExpandTagPlaceholders(std::string_view template_text, const TrackTags& tags) {
  std::string text = ReplaceIgnoringCase(template_text, "%Artist%", tags.Artist);
  text = ReplaceIgnoringCase(text, "%Title%", tags.Title);
  text = ReplaceIgnoringCase(text, "%Album%", tags.Album);
  text = ReplaceIgnoringCase(text, "%Station%", tags.Genre);
  return ReplaceIgnoringCase(text, "%Genre%", tags.Genre);
}

}  // namespace wavforge

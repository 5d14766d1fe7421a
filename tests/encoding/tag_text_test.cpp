#include "encoding/tag_text.h"

#include <gtest/gtest.h>

#include <string>

namespace wavforge {
namespace {

using namespace std::string_literals;

TEST(DecodeTagTextTest, KeepsStrictUtf8AndReadsAnythingElseAsWindows1252) {
  const std::pair<std::string, std::string> cases[] = {
      {"Caf\xC3\xA9", "Caf\xC3\xA9"},
      {"\xE6\x97\xA5\xE6\x9C\xAC", "\xE6\x97\xA5\xE6\x9C\xAC"},
      {"\xF0\x9F\x8E\xB7", "\xF0\x9F\x8E\xB7"},
      // One byte that is not UTF-8 makes the whole text Windows-1252, even the part that
      // would have been valid UTF-8.
      {"\xC3\xA9 \xE9", "\xC3\x83\xC2\xA9 \xC3\xA9"},
      {"\xC0\x80", "\xC3\x80\xE2\x82\xAC"},                              // overlong
      {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC"},                  // surrogate
      {"\xF4\x90\x80\x80", "\xC3\xB4\xC2\x90\xE2\x82\xAC\xE2\x82\xAC"},  // beyond Unicode
      {"ab\xE2\x82", "ab\xC3\xA2\xE2\x80\x9A"},                          // truncated sequence
      // The text ends at its first NUL, which the decision on the encoding does not see past.
      {"Anna\0Bert"s, "Anna"},
      {"Caf\xC3\xA9\0\xFF"s, "Caf\xC3\xA9"},
      {"Caf\xE9\0\xC3\xA9"s, "Caf\xC3\xA9"},
  };
  for (const auto& [raw, expected] : cases) EXPECT_EQ(DecodeTagText(raw), expected) << raw;
}

}  // namespace
}  // namespace wavforge

#include "encoding/tag_text.h"

#include <gtest/gtest.h>
#include <iconv.h>

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

// The system's converter is the reference for the 251 bytes Windows-1252 defines.
std::string SystemWindows1252ToUtf8(unsigned char byte) {
  iconv_t converter = iconv_open("UTF-8", "CP1252");
  if (converter == reinterpret_cast<iconv_t>(-1)) return "<no converter>";
  char in = static_cast<char>(byte);
  char out[8] = {};
  char* in_ptr = &in;
  char* out_ptr = out;
  std::size_t in_left = 1;
  std::size_t out_left = sizeof(out);
  const auto result = iconv(converter, &in_ptr, &in_left, &out_ptr, &out_left);
  iconv_close(converter);
  if (result == static_cast<std::size_t>(-1)) return "<undefined>";
  return std::string(out, sizeof(out) - out_left);
}

TEST(DecodeTagTextTest, EveryHighByteMapsLikeTheSystemConverter) {
  for (int byte = 0x80; byte <= 0xFF; ++byte) {
    std::string expected = SystemWindows1252ToUtf8(static_cast<unsigned char>(byte));
    if (byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D) {
      ASSERT_EQ(expected, "<undefined>");
      // Undefined in the code page: the byte keeps its value as a code point.
      expected = {static_cast<char>(0xC2), static_cast<char>(byte)};
    }
    EXPECT_EQ(DecodeTagText(std::string(1, static_cast<char>(byte))), expected)
        << "byte 0x" << std::hex << byte;
  }
}

}  // namespace
}  // namespace wavforge

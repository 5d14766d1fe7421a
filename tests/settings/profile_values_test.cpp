#include "settings/profile_values.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "fakes/memory_profile_reader.h"

namespace wavforge {
namespace {

using namespace std::string_literals;
using Names = std::vector<std::string>;

constexpr char kFile[] = "/program/LarkspurFix.ini";

// A text of that length in which every prefix differs from every other stretch of it, so a
// cut at the wrong end or by the wrong amount cannot look right.
std::string Pattern(std::size_t length) {
  std::string text;
  for (std::size_t i = 0; i < length; ++i) text += static_cast<char>('A' + (i * 7 + i / 26) % 26);
  return text;
}

TEST(ProfileTextTest, CutsValueAndDefaultToTheBuffer) {
  // Length of the value, capacity of the buffer, length read.
  const std::tuple<std::size_t, std::size_t, std::size_t> cases[] = {
      {255, kSettingTextCapacity, 254},
      {254, kSettingTextCapacity, 254},
      {1024, kParameterListCapacity, 1023},
      {40000, kLargeProfileBufferCapacity, 32766},
      {5, 0, 0},
  };
  for (const auto& [value_length, capacity, expected_length] : cases) {
    fakes::MemoryProfileReader reader;
    reader.SetFile(kFile, "[EncParams]\nMP3=\"" + Pattern(value_length) + "\"\n");
    const std::string expected = Pattern(value_length).substr(0, expected_length);
    EXPECT_EQ(GetProfileText(reader, kFile, "EncParams", "MP3", "x", capacity), expected);
    EXPECT_EQ(GetProfileText(reader, kFile, "EncParams", "Absent", Pattern(value_length), capacity),
              expected);
  }
}

constexpr std::int64_t kDefault = 42;
constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

TEST(ProfileNumberTest, ReadsLeadingInteger) {
  const std::pair<std::optional<std::string>, std::int64_t> cases[] = {
      {"-5", -5},
      {"+12", 12},
      {"  7x", 7},
      {"\"\t9\"", 9},
      {"x7", 0},
      {"0x1F", 0},  // no hexadecimal
      {"- 5", 0},
      {"\"  \"", 0},  // only blanks: not empty, so no default
      {"", kDefault},
      {std::nullopt, kDefault},
      {"9223372036854775807", kMax},
      {"9223372036854775808", kMax},
      {"-9223372036854775808", kMin},
      {"-9223372036854775809", kMin},
  };
  for (const auto& [value, expected] : cases) {
    fakes::MemoryProfileReader reader;
    reader.SetFile(kFile, "[Options]\nOther=7\n" + (value ? "Encoder=" + *value : "") + "\n");
    EXPECT_EQ(GetProfileNumber(reader, kFile, "Options", "Encoder", kDefault), expected)
        << value.value_or("(no entry)");
  }
}

// "alpha\0beta\0gamma\0" and the closing NUL need 18 characters.
TEST(ProfileNameListTest, CutsLikeANulSeparatedBuffer) {
  const std::pair<std::size_t, Names> cases[] = {
      {18, {"alpha", "beta", "gamma"}},
      {17, {"alpha", "beta", "gamm"}},
      {13, {"alpha", "beta"}},
      {0, {}},
  };
  fakes::MemoryProfileReader reader;
  reader.SetFile(kFile, "alpha=1\nbeta=2\ngamma=3\n[alpha]\n[beta]\n[gamma]\n");
  for (const auto& [capacity, expected] : cases) {
    EXPECT_EQ(GetProfileKeyNames(reader, kFile, "", capacity), expected) << capacity;
    EXPECT_EQ(GetProfileSectionNames(reader, kFile, capacity), expected) << capacity;
  }
}

}  // namespace
}  // namespace wavforge

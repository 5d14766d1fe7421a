#include "settings/profile_values.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
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

struct CapCase {
  std::size_t value_length;
  std::size_t capacity;
  std::size_t expected_length;
};

class ProfileTextCapTest : public ::testing::TestWithParam<CapCase> {};

TEST_P(ProfileTextCapTest, CutsValueAndDefaultToTheBuffer) {
  const CapCase& c = GetParam();
  fakes::MemoryProfileReader reader;
  reader.SetFile(kFile, "[EncParams]\nMP3=" + Pattern(c.value_length) + "\n[Quoted]\nMP3=\"" +
                            Pattern(c.value_length) + "\"\n");
  const std::string expected = Pattern(c.value_length).substr(0, c.expected_length);

  EXPECT_EQ(GetProfileText(reader, kFile, "EncParams", "MP3", "x", c.capacity), expected);
  EXPECT_EQ(GetProfileText(reader, kFile, "Quoted", "MP3", "x", c.capacity), expected);
  EXPECT_EQ(
      GetProfileText(reader, kFile, "EncParams", "Absent", Pattern(c.value_length), c.capacity),
      expected);
}

INSTANTIATE_TEST_SUITE_P(Buffers, ProfileTextCapTest,
                         ::testing::Values(CapCase{300, kSettingTextCapacity, 254},
                                           CapCase{255, kSettingTextCapacity, 254},
                                           CapCase{254, kSettingTextCapacity, 254},
                                           CapCase{253, kSettingTextCapacity, 253},
                                           CapCase{1100, kParameterListCapacity, 1023},
                                           CapCase{1024, kParameterListCapacity, 1023},
                                           CapCase{1023, kParameterListCapacity, 1023},
                                           CapCase{300, kParameterListCapacity, 300},
                                           CapCase{40000, kLargeProfileBufferCapacity, 32766},
                                           CapCase{5, 1, 0}, CapCase{5, 0, 0},
                                           CapCase{0, kSettingTextCapacity, 0}));

TEST(ProfileTextTest, CapacitiesAreTheProgramBuffers) {
  EXPECT_EQ(kSettingTextCapacity, 255u);
  EXPECT_EQ(kParameterListCapacity, 1024u);
  EXPECT_EQ(kLargeProfileBufferCapacity, 32767u);
}

struct TextCase {
  const char* what;
  std::string file;
  std::string expected;
};

void PrintTo(const TextCase& c, std::ostream* out) {
  *out << c.what;
}

class ProfileTextTest : public ::testing::TestWithParam<TextCase> {};

TEST_P(ProfileTextTest, ReadsValueOrDefault) {
  fakes::MemoryProfileReader reader;
  reader.SetFile(kFile, GetParam().file);
  EXPECT_EQ(GetProfileText(reader, kFile, "Options", "TempPath", "%Temp%", kSettingTextCapacity),
            GetParam().expected)
      << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    Values, ProfileTextTest,
    ::testing::Values(TextCase{"value", "[Options]\nTempPath=/scratch", "/scratch"},
                      TextCase{"names in other case", "[OPTIONS]\ntemppath=/scratch", "/scratch"},
                      TextCase{"empty value is no default", "[Options]\nTempPath=", ""},
                      TextCase{"missing key", "[Options]\nMusicPath=/m", "%Temp%"},
                      TextCase{"missing section", "[General]\nTempPath=/t", "%Temp%"},
                      TextCase{"missing file", "", "%Temp%"},
                      TextCase{"cut at NUL like a buffer", "[Options]\nTempPath=/a\0/b"s, "/a"}));

TEST(ProfileTextTest, MissingFileGivesDefault) {
  fakes::MemoryProfileReader reader;
  EXPECT_EQ(GetProfileText(reader, "/nowhere.ini", "S", "k", "dflt", kSettingTextCapacity), "dflt");
}

struct NumberCase {
  const char* what;
  std::optional<std::string> line;  // the entry's line, or no entry at all
  std::int64_t expected;
};

void PrintTo(const NumberCase& c, std::ostream* out) {
  *out << c.what;
}

constexpr std::int64_t kDefault = 42;
constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

class ProfileNumberTest : public ::testing::TestWithParam<NumberCase> {};

TEST_P(ProfileNumberTest, ReadsLeadingInteger) {
  const NumberCase& c = GetParam();
  fakes::MemoryProfileReader reader;
  reader.SetFile(kFile, "[Options]\nOther=7\n" + c.line.value_or("") + "\n");
  EXPECT_EQ(GetProfileNumber(reader, kFile, "Options", "Encoder", kDefault), c.expected) << c.what;
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, ProfileNumberTest,
    ::testing::Values(
        NumberCase{"plain", "Encoder=3", 3}, NumberCase{"beyond 16 bits", "Encoder=32768", 32768},
        NumberCase{"negative", "Encoder=-5", -5}, NumberCase{"plus sign", "Encoder=+12", 12},
        NumberCase{"leading zeros", "Encoder=007", 7}, NumberCase{"zero", "Encoder=0", 0},
        NumberCase{"trailing text", "Encoder=  7x", 7},
        NumberCase{"blanks kept by quotes", "Encoder=\"  7x\"", 7},
        NumberCase{"tab before the digits", "Encoder=\"\t9\"", 9},
        NumberCase{"decimal point", "Encoder=3.9", 3}, NumberCase{"two numbers", "Encoder=1 2", 1},
        NumberCase{"letter first", "Encoder=x7", 0},
        NumberCase{"hexadecimal prefix", "Encoder=0x1F", 0},
        NumberCase{"sign alone", "Encoder=-", 0},
        NumberCase{"blank after the sign", "Encoder=- 5", 0},
        NumberCase{"only blanks in quotes", "Encoder=\"  \"", 0},
        NumberCase{"empty value", "Encoder=", kDefault},
        NumberCase{"empty quotes", "Encoder=\"\"", kDefault},
        NumberCase{"missing key", std::nullopt, kDefault},
        NumberCase{"key in other case", "ENCODER=4", 4},
        NumberCase{"largest", "Encoder=9223372036854775807", kMax},
        NumberCase{"one past largest", "Encoder=9223372036854775808", kMax},
        NumberCase{"huge", "Encoder=99999999999999999999", kMax},
        NumberCase{"smallest", "Encoder=-9223372036854775808", kMin},
        NumberCase{"one past smallest", "Encoder=-9223372036854775809", kMin},
        NumberCase{"huge negative", "Encoder=-99999999999999999999", kMin}));

struct SplitCase {
  std::string text;
  char separator;
  std::vector<std::string> expected;
};

class SplitListTest : public ::testing::TestWithParam<SplitCase> {};

TEST_P(SplitListTest, SplitsAtEverySeparator) {
  EXPECT_EQ(SplitList(GetParam().text, GetParam().separator), GetParam().expected)
      << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Lists, SplitListTest,
    ::testing::Values(SplitCase{"a;;b;", ';', {"a", "", "b", ""}}, SplitCase{"", ';', {}},
                      SplitCase{";", ';', {"", ""}}, SplitCase{"abc", ';', {"abc"}},
                      SplitCase{" a ; b ", ';', {" a ", " b "}}, SplitCase{";a", ';', {"", "a"}},
                      SplitCase{"-V2;-b 192 -m j", ';', {"-V2", "-b 192 -m j"}},
                      SplitCase{"text|tip|more", '|', {"text", "tip", "more"}},
                      SplitCase{"a;b", '|', {"a;b"}}, SplitCase{"a\0b\0"s, '\0', {"a", "b", ""}}));

struct NameListCase {
  std::size_t capacity;
  std::vector<std::string> expected;
};

class ProfileNameListTest : public ::testing::TestWithParam<NameListCase> {};

// "alpha\0beta\0gamma\0" and the closing NUL need 18 characters.
TEST_P(ProfileNameListTest, CutsLikeANulSeparatedBuffer) {
  fakes::MemoryProfileReader reader;
  reader.SetFile(kFile, "alpha=1\nbeta=2\ngamma=3\n[alpha]\n[beta]\n[gamma]\n");
  EXPECT_EQ(GetProfileKeyNames(reader, kFile, "", GetParam().capacity), GetParam().expected);
  EXPECT_EQ(GetProfileSectionNames(reader, kFile, GetParam().capacity), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Capacities, ProfileNameListTest,
    ::testing::Values(NameListCase{kLargeProfileBufferCapacity, {"alpha", "beta", "gamma"}},
                      NameListCase{18, {"alpha", "beta", "gamma"}},
                      NameListCase{17, {"alpha", "beta", "gamm"}},
                      NameListCase{16, {"alpha", "beta", "gam"}},
                      NameListCase{13, {"alpha", "beta"}}, NameListCase{12, {"alpha", "beta"}},
                      NameListCase{11, {"alpha", "bet"}}, NameListCase{3, {"a"}},
                      NameListCase{2, {}}, NameListCase{0, {}}));

TEST(ProfileNameListTest, KeepsDuplicateKeysAndSkipsOtherSections) {
  fakes::MemoryProfileReader reader;
  reader.SetFile(kFile, "[Nav]\nhome=start.htm\n[Other]\nx=1\n[nav]\nHOME=again.htm\n");
  EXPECT_EQ(GetProfileKeyNames(reader, kFile, "NAV", kLargeProfileBufferCapacity),
            (Names{"home", "HOME"}));
  EXPECT_EQ(GetProfileSectionNames(reader, kFile, kLargeProfileBufferCapacity),
            (Names{"Nav", "Other"}));
  EXPECT_EQ(GetProfileKeyNames(reader, "/missing.nav", "Nav", kLargeProfileBufferCapacity),
            Names{});
}

}  // namespace
}  // namespace wavforge

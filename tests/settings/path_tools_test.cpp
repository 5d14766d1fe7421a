#include "settings/path_tools.h"

#include <gtest/gtest.h>

#include <string>

namespace wavforge {
namespace {

using namespace std::string_literals;

struct TextCase {
  std::string input;
  std::string expected;
};

class PathBaseNameTest : public ::testing::TestWithParam<TextCase> {};

TEST_P(PathBaseNameTest, TakesLastComponentWithoutExtension) {
  EXPECT_EQ(PathBaseName(GetParam().input), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, PathBaseNameTest,
    ::testing::Values(TextCase{"/home/anna.smith", "anna"},  // last dot of the component
                      TextCase{"/home/a.b.c", "a.b"},        // only the last extension goes
                      TextCase{"/home/anna", "anna"},        // no dot at all
                      TextCase{"/home.d/anna", "anna"},      // dot before the last separator
                      TextCase{"/home/anna/", ""},           // ends with the separator
                      TextCase{"anna.smith", ""},            // no separator
                      TextCase{"", ""},                      //
                      TextCase{"/home/.hidden", ""}));       // dot right after separator

struct CleanCase {
  std::string input;
  std::string path_chars;
  std::string file_name;
};

class CleanNameTest : public ::testing::TestWithParam<CleanCase> {};

TEST_P(CleanNameTest, ReplacesForbiddenCharacters) {
  EXPECT_EQ(CleanPathChars(GetParam().input), GetParam().path_chars);
  EXPECT_EQ(CleanFileName(GetParam().input), GetParam().file_name);
}

INSTANTIATE_TEST_SUITE_P(
    Values, CleanNameTest,
    ::testing::Values(
        // The other slash, colon and question mark become "_", outer blanks go; the platform
        // separator survives only in a folder path.
        CleanCase{"  AC\\DC: Who?/Live  ", "AC_DC_ Who_/Live", "AC_DC_ Who__Live"},
        CleanCase{"*\"<>|", "_____", "_____"}, CleanCase{" - ", "-", "-"}, CleanCase{"   ", "", ""},
        CleanCase{"\tTab\t", "\tTab\t", "\tTab\t"},  // only spaces are trimmed
        CleanCase{"a\0b"s, "a\0b"s, "a\0b"s}));

TEST(TrimAtNulTest, CutsAtFirstNul) {
  EXPECT_EQ(TrimAtNul("abc\0def\0"s), "abc");
  EXPECT_EQ(TrimAtNul("\0abc"s), "");
  EXPECT_EQ(TrimAtNul("abc"), "abc");
}

}  // namespace
}  // namespace wavforge

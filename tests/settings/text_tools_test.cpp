#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "fakes/fake_environment.h"
#include "settings/environment_strings.h"
#include "settings/text_replace.h"

namespace wavforge {
namespace {

TEST(ReplaceTest, ReplacesLeftToRightWithoutRescanning) {
  // Text, needle, replacement; the result with and without letter case.
  const std::tuple<const char*, const char*, const char*, const char*, const char*> cases[] = {
      {"%A%x%a%", "%a%", "1", "%A%x1", "1x1"},
      {"aaa", "aa", "b", "ba", "ba"},  // no overlap
      {"%x%", "%x%", "%x%%x%", "%x%%x%", "%x%%x%"},
      {"abc", "", "z", "abc", "abc"},
      {"\xC4%t%", "%T%", "\xE4", "\xC4%t%", "\xC4\xE4"},
  };
  for (const auto& [text, needle, replacement, sensitive, ignoring_case] : cases) {
    EXPECT_EQ(ReplaceAll(text, needle, replacement), sensitive) << text;
    EXPECT_EQ(ReplaceAllIgnoreCase(text, needle, replacement), ignoring_case) << text;
  }
}

TEST(EnvironmentStringsTest, ExpandsKnownNamesOnly) {
  fakes::FakeEnvironment environment;
  environment.variables = {{"HOME", "/home/u"}, {"Path", "/bin"}, {"EMPTY", ""}};
  const std::pair<const char*, const char*> cases[] = {
      {"%HOME%/x", "/home/u/x"},      {"a%EMPTY%b", "ab"},    {"%NOPE%/x", "%NOPE%/x"},
      {"%NOPE%HOME%", "%NOPE%HOME%"}, {"%%HOME%", "%%HOME%"}, {"50%", "50%"},
  };
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(ExpandEnvironmentStrings(text, environment), expected) << text;
  }
}

}  // namespace
}  // namespace wavforge

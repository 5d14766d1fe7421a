#include <gtest/gtest.h>

#include <string>

#include "fakes/fake_environment.h"
#include "settings/environment_strings.h"
#include "settings/text_replace.h"

namespace wavforge {
namespace {

struct ReplaceCase {
  std::string text, needle, replacement, sensitive, ignoring_case;
};

class ReplaceTest : public ::testing::TestWithParam<ReplaceCase> {};

TEST_P(ReplaceTest, ReplacesLeftToRightWithoutRescanning) {
  const auto& c = GetParam();
  EXPECT_EQ(ReplaceAll(c.text, c.needle, c.replacement), c.sensitive);
  EXPECT_EQ(ReplaceAllIgnoreCase(c.text, c.needle, c.replacement), c.ignoring_case);
}

INSTANTIATE_TEST_SUITE_P(Table, ReplaceTest,
                         ::testing::Values(ReplaceCase{"%A%x%a%", "%a%", "1", "%A%x1", "1x1"},
                                           ReplaceCase{"aaa", "aa", "b", "ba", "ba"},  // no overlap
                                           ReplaceCase{"%x%", "%x%", "%x%%x%", "%x%%x%", "%x%%x%"},
                                           ReplaceCase{"abc", "", "z", "abc", "abc"},
                                           ReplaceCase{"\xC4%t%", "%T%", "\xE4", "\xC4%t%",
                                                       "\xC4\xE4"}));

struct EnvCase {
  std::string text, expected;
};

class EnvironmentStringsTest : public ::testing::TestWithParam<EnvCase> {};

TEST_P(EnvironmentStringsTest, ExpandsKnownNamesOnly) {
  fakes::FakeEnvironment environment;
  environment.variables = {{"HOME", "/home/u"}, {"Path", "/bin"}, {"EMPTY", ""}};
  EXPECT_EQ(ExpandEnvironmentStrings(GetParam().text, environment), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Table, EnvironmentStringsTest,
                         ::testing::Values(EnvCase{"%HOME%/x", "/home/u/x"},
                                           EnvCase{"a%EMPTY%b", "ab"},
                                           EnvCase{"%NOPE%/x", "%NOPE%/x"},
                                           EnvCase{"%NOPE%HOME%", "%NOPE%HOME%"},
                                           EnvCase{"%%HOME%", "%%HOME%"}, EnvCase{"50%", "50%"}));

}  // namespace
}  // namespace wavforge

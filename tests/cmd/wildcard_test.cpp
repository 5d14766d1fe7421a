#include "cmd/wildcard.h"

#include <gtest/gtest.h>

namespace wavforge::cmd {
namespace {

struct WildcardCase {
  const char* pattern;
  const char* name;
  bool matches;
};

class MatchesWildcardTest : public ::testing::TestWithParam<WildcardCase> {};

TEST_P(MatchesWildcardTest, MatchesLikeDel) {
  EXPECT_EQ(MatchesWildcard(GetParam().pattern, GetParam().name), GetParam().matches)
      << GetParam().pattern << " against " << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(
    Patterns, MatchesWildcardTest,
    ::testing::Values(
        WildcardCase{"*.wav", "song.wav.bak", false},
        WildcardCase{"*.wav", "song.WAV", false},  // names keep their case on this platform
        WildcardCase{"Band - Song.*", "Band - Song", true},  // the extension may be missing
        WildcardCase{"Band - Song.*", "Band - Song.tar.gz", true},
        WildcardCase{"Band - Song.*", "Band - Songs.wav", false},
        WildcardCase{"*.*", "README", true}, WildcardCase{"s?ng.wav", "sng.wav", false},
        WildcardCase{"?", "ab", false}, WildcardCase{"a*b*c", "aXbYcZ", false},
        WildcardCase{"*x", "xxxx", true}, WildcardCase{"take*", "take", true},
        WildcardCase{"**a", "a", true},
        WildcardCase{"*", "*x", true},  // a star in a name is a character like any other
        WildcardCase{"*b", "*ab", true}));

TEST(HasWildcardsTest, SeesStarsAndQuestionMarks) {
  EXPECT_TRUE(HasWildcards("take?.wav"));
  EXPECT_FALSE(HasWildcards("Band - Song.wav"));
}

}  // namespace
}  // namespace wavforge::cmd

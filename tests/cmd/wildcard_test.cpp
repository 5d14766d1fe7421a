#include "cmd/wildcard.h"

#include <gtest/gtest.h>

#include <tuple>

namespace wavforge::cmd {
namespace {

TEST(MatchesWildcardTest, MatchesLikeDel) {
  const std::tuple<const char*, const char*, bool> cases[] = {
      {"*.wav", "song.wav.bak", false},
      {"*.wav", "song.WAV", true},             // letter case ignored, as on Windows
      {"\xc3\xa9*", "\xc3\x89.wav", false},    // but only for ASCII letters
      {"Band - Song.*", "Band - Song", true},  // the extension may be missing
      {"Band - Song.*", "Band - Song.tar.gz", true},
      {"Band - Song.*", "Band - Songs.wav", false},
      {"*.*", "README", true},
      {"s?ng.wav", "sng.wav", false},
      {"?", "ab", false},
      {"a*b*c", "aXbYcZ", false},
      {"*x", "xxxx", true},
      {"take*", "take", true},
      {"**a", "a", true},
      {"*", "*x", true},  // a star in a name is a character like any other
      {"*b", "*ab", true},
  };
  for (const auto& [pattern, name, matches] : cases) {
    EXPECT_EQ(MatchesWildcard(pattern, name), matches) << pattern << " against " << name;
  }
}

TEST(HasWildcardsTest, SeesStarsAndQuestionMarks) {
  EXPECT_TRUE(HasWildcards("take?.wav"));
  EXPECT_FALSE(HasWildcards("Band - Song.wav"));
}

}  // namespace
}  // namespace wavforge::cmd

#include "shell/file_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace wavforge {
namespace {

TEST(ParseCommandLineTest, SplitsLikeTheWindowsProgramDid) {
  const std::pair<std::string, std::vector<std::string>> cases[] = {
      {"\"/rec/Band - Song.wav\"", {"/rec/Band - Song.wav", ""}},
      {"a.wav  b.wav", {"a.wav", "b.wav"}},       // two blanks: one separator
      {"a.wav   b.wav", {"a.wav", "", "b.wav"}},  // three: an empty item
      {"\"/a b.wav\" c.wav", {"/a b.wav", "c.wav"}},
      {"a.wav|b.wav", {"a.wav", "b.wav"}},
      {"a.wav\tb.wav", {"a.wav\tb.wav"}},
      {"x\"y z\"w", {"xy z", "w"}},
  };
  for (const auto& [line, items] : cases) {
    FileList list({"earlier"});
    EXPECT_TRUE(ParseCommandLine(line, list));
    EXPECT_EQ(list.Items(), items) << line;
  }
}

TEST(ParseCommandLineEmpty, LeavesTheListAlone) {
  FileList list({"earlier"});
  EXPECT_FALSE(ParseCommandLine("", list));
  EXPECT_EQ(list.Items(), std::vector<std::string>{"earlier"});
  EXPECT_EQ(FileList().UpperBound(), -1);
}

TEST(JoinCommandLineTest, QuotesArgumentsWithBlanksSoTheParserGetsThemBack) {
  const std::vector<std::string> arguments = {"/rec/a.wav", "/rec/Band - Song.wav", "b.wav"};
  const std::string line = JoinCommandLine(arguments);
  EXPECT_EQ(line, "/rec/a.wav \"/rec/Band - Song.wav\" b.wav");
  FileList list;
  ParseCommandLine(line, list);
  EXPECT_EQ(list.Items(), arguments);
}

}  // namespace
}  // namespace wavforge

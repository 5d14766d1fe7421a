#include "shell/file_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace wavforge {
namespace {

struct CommandLineCase {
  std::string line;
  std::vector<std::string> items;
};

class ParseCommandLineTest : public ::testing::TestWithParam<CommandLineCase> {};

TEST_P(ParseCommandLineTest, SplitsLikeTheWindowsProgramDid) {
  FileList list({"earlier"});
  EXPECT_TRUE(ParseCommandLine(GetParam().line, list));
  EXPECT_EQ(list.Items(), GetParam().items);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ParseCommandLineTest,
    ::testing::Values(
        CommandLineCase{"\"/rec/Band - Song.wav\"", {"/rec/Band - Song.wav", ""}},
        CommandLineCase{"a.wav  b.wav", {"a.wav", "b.wav"}},       // two blanks: one separator
        CommandLineCase{"a.wav   b.wav", {"a.wav", "", "b.wav"}},  // three: an empty item
        CommandLineCase{"\"/a b.wav\" c.wav", {"/a b.wav", "c.wav"}},
        CommandLineCase{"a.wav|b.wav", {"a.wav", "b.wav"}},
        CommandLineCase{"a.wav\tb.wav", {"a.wav\tb.wav"}},
        CommandLineCase{"x\"y z\"w", {"xy z", "w"}}));

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

#include "cmd/command_chain.h"

#include <gtest/gtest.h>

#include <ostream>

namespace wavforge::cmd {

bool operator==(const ChainedCommand& a, const ChainedCommand& b) {
  return a.connector == b.connector && a.text == b.text;
}

std::ostream& operator<<(std::ostream& out, const ChainedCommand& c) {
  return out << "{" << static_cast<int>(c.connector) << " '" << c.text << "'}";
}

namespace {

constexpr Connector kFirst = Connector::kFirst;
constexpr Connector kAlways = Connector::kAlways;
constexpr Connector kOnSuccess = Connector::kOnSuccess;
constexpr Connector kOnFailure = Connector::kOnFailure;

struct ChainCase {
  const char* name;
  std::string line;
  std::vector<ChainedCommand> commands;
};

class SplitCommandChainTest : public ::testing::TestWithParam<ChainCase> {};

TEST_P(SplitCommandChainTest, CutsTheLineAtConnectors) {
  const CommandChain chain = SplitCommandChain(GetParam().line);
  EXPECT_EQ(chain.error, "");
  EXPECT_EQ(chain.commands, GetParam().commands);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, SplitCommandChainTest,
    ::testing::Values(
        ChainCase{"Single", "lame a.wav", {{kFirst, "lame a.wav"}}}, ChainCase{"Empty", "", {}},
        ChainCase{"Ampersand", "echo a & echo b", {{kFirst, "echo a "}, {kAlways, " echo b"}}},
        ChainCase{"SuccessAndFailure",
                  "a && b || c",
                  {{kFirst, "a "}, {kOnSuccess, " b "}, {kOnFailure, " c"}}},
        ChainCase{"QuotedAmpersand", R"(echo "a & b")", {{kFirst, R"(echo "a & b")"}}},
        ChainCase{"EscapedAmpersand", "echo a ^& b", {{kFirst, "echo a ^& b"}}},
        ChainCase{"HandleDuplicationIsNoConnector",
                  "prog >log 2>&1 & echo done",
                  {{kFirst, "prog >log 2>&1 "}, {kAlways, " echo done"}}},
        ChainCase{"RemTakesTheRest", "rem a & echo b", {{kFirst, "rem a & echo b"}}},
        ChainCase{"RemAfterAConnector",
                  "echo a & @rem b && c",
                  {{kFirst, "echo a "}, {kAlways, " @rem b && c"}}},
        ChainCase{"RemarkIsNoRem", "remark & x", {{kFirst, "remark "}, {kAlways, " x"}}},
        ChainCase{"TrailingAmpersand", "echo a &", {{kFirst, "echo a "}}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SplitCommandChainErrorTest, RefusesWhatCannotRun) {
  const std::pair<const char*, const char*> cases[] = {
      {"& echo a", "& was unexpected at this time."},
      {"  && echo a", "&& was unexpected at this time."},
      {"echo a & || b", "|| was unexpected at this time."},
      {"echo a | sort", "Pipes (|) are not supported by wavforge-cmd."},
  };
  for (const auto& [line, message] : cases) {
    const CommandChain chain = SplitCommandChain(line);
    EXPECT_EQ(chain.error, message) << line;
    EXPECT_TRUE(chain.commands.empty()) << line;
  }
}

}  // namespace
}  // namespace wavforge::cmd

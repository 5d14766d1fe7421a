#include "cmd/command_chain.h"

#include <gtest/gtest.h>

namespace wavforge::cmd {
namespace {

// The commands with the connector before each: "[a ]&&[ b ]||[ c]".
std::string Describe(const CommandChain& chain) {
  std::string text;
  for (const ChainedCommand& command : chain.commands) {
    const Connector c = command.connector;
    text += c == Connector::kAlways      ? "&"
            : c == Connector::kOnSuccess ? "&&"
            : c == Connector::kOnFailure ? "||"
                                         : "";
    text += "[" + command.text + "]";
  }
  return text;
}

TEST(SplitCommandChainTest, CutsTheLineAtConnectors) {
  const std::pair<const char*, const char*> cases[] = {
      {"echo a & echo b", "[echo a ]&[ echo b]"},
      {"a && b || c", "[a ]&&[ b ]||[ c]"},
      {R"(echo "a & b")", R"([echo "a & b"])"},
      {"echo a ^& b", "[echo a ^& b]"},
      {"prog >log 2>&1 & echo done", "[prog >log 2>&1 ]&[ echo done]"},
      {"rem a & echo b", "[rem a & echo b]"},
      {"echo a & @rem b && c", "[echo a ]&[ @rem b && c]"},
      {"remark & x", "[remark ]&[ x]"},
      {"echo a &", "[echo a ]"},
  };
  for (const auto& [line, expected] : cases) {
    const CommandChain chain = SplitCommandChain(line);
    EXPECT_EQ(chain.error, "") << line;
    EXPECT_EQ(Describe(chain), expected) << line;
  }
}

TEST(SplitCommandChainTest, RefusesWhatCannotRun) {
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

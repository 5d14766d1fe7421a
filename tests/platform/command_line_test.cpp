#include "platform/command_line.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace platform {
namespace {

struct SplitCase {
  const char* name;
  std::string line;
  std::vector<std::string> expected;
};

TEST(SplitCommandLineTest, BuildsArgvLikeTheMicrosoftRuntime) {
  const SplitCase cases[] = {
      SplitCase{"OnlyBlanks", " \t ", {}},
      SplitCase{"BlanksAndTabsSeparate", "  prog   a\tb ", {"prog", "a", "b"}},
      SplitCase{"QuotesGroup", R"(prog "a b" c)", {"prog", "a b", "c"}},
      SplitCase{"QuotesInsideAWord", R"(prog a"b c"d)", {"prog", "ab cd"}},
      SplitCase{"EmptyQuotedArgument", R"(prog "" x)", {"prog", "", "x"}},
      SplitCase{"UnterminatedQuoteRunsToTheEnd", R"(prog "open arg)", {"prog", "open arg"}},
      SplitCase{"BackslashesAloneAreLiteral", R"(prog a\\b c\)", {"prog", R"(a\\b)", R"(c\)"}},
      SplitCase{"OddBackslashesEscapeTheQuote", R"(prog a\"b)", {"prog", R"(a"b)"}},
      SplitCase{"ThreeBackslashesGiveOneAndAQuote", R"(prog a\\\"b)", {"prog", R"(a\"b)"}},
      SplitCase{"EvenBackslashesHalveAndToggle", R"(prog a\\"b c")", {"prog", R"(a\b c)"}},
      SplitCase{"EscapedQuoteAtTheEndOfAGroup", R"(prog "a\")", {"prog", R"(a")"}},
      SplitCase{"DoubledQuoteInsideAGroup", R"(prog "a"" b")", {"prog", R"(a" b)"}},
      SplitCase{"FourQuotesGiveOne", R"(prog """")", {"prog", R"(")"}},
      SplitCase{"ProgramNameKeepsBackslashes",
                R"("C:\Program Files\lame.exe" --quiet)",
                {R"(C:\Program Files\lame.exe)", "--quiet"}},
      SplitCase{"ProgramNameQuoteIsNotEscaped", R"(prog\" a)", {R"(prog\ a)"}}};
  for (const SplitCase& c : cases) EXPECT_EQ(SplitCommandLine(c.line), c.expected) << c.name;
}

TEST(ProgramNameAsWrittenTest, KeepsQuotesAndStopsAtTheFirstBlank) {
  const std::pair<std::string, std::string> cases[] = {
      {"lame --preset", "lame"},
      {R"(  "my tool" -x)", R"("my tool")"},
      {R"(a"b c"d e)", R"(a"b c"d)"},
  };
  for (const auto& [line, expected] : cases)
    EXPECT_EQ(ProgramNameAsWritten(line), expected) << line;
}

}  // namespace
}  // namespace platform

#include "encoding/substitute_args.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace wavforge {
namespace {

struct SubstituteCase {
  std::string text;
  std::vector<std::string> arguments;
  std::string expected;
};

TEST(SubstituteArgsTest, FillsNumberedFieldsInTurn) {
  const SubstituteCase cases[] = {
      SubstituteCase{"lame %5 \"%1.wav\" \"%2.mp3\"",
                     {"/r/a", "/m/b", "", "", "%1"},
                     "lame %1 \"/r/a.wav\" \"/m/b.mp3\""},  // %5 brings "%1" after its turn
      SubstituteCase{"%1|%2", {"has %2", "out"}, "has out|out"},
      SubstituteCase{"%1 %1 %3", {"x"}, "x x %3"}, SubstituteCase{"%10", {"a"}, "a0"}};
  for (const SubstituteCase& c : cases) {
    EXPECT_EQ(SubstituteArgs(c.text, c.arguments), c.expected) << c.text;
  }
}

}  // namespace
}  // namespace wavforge

#include "cmd/invocation.h"

#include <gtest/gtest.h>

namespace wavforge::cmd {
namespace {

// The parts of an invocation that are set, in one line.
std::string Describe(const Invocation& invocation) {
  std::string text = invocation.echo_off ? "/q " : "";
  if (!invocation.error.empty()) return text + "error";
  if (invocation.command_mode) return text + "/c [" + invocation.command_line + "]";
  text += "script [" + invocation.script + "]";
  for (const std::string& argument : invocation.script_arguments) text += " [" + argument + "]";
  return text;
}

TEST(ParseInvocationTest, ReadsTheCallLikeCmd) {
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"job.bat", "plain", "two words", "", "a=b", R"("q")"},
       R"(script [job.bat] [plain] ["two words"] [""] ["a=b"] ["q"])"},
      {{"job.bat", "/c"}, "script [job.bat] [/c]"},
      {{"/D", "/q", "/C", R"(del "a b")"}, R"(/q /c [del "a b"])"},
      {{"/e:on", "/v:off", "/s", "/k", "x"}, "/c [x]"},
      {{}, "error"},
      {{"/q"}, "/q error"},
  };
  for (const auto& [arguments, expected] : cases) {
    EXPECT_EQ(Describe(ParseInvocation(arguments)), expected) << expected;
  }
}

}  // namespace
}  // namespace wavforge::cmd

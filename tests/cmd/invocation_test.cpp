#include "cmd/invocation.h"

#include <gtest/gtest.h>

namespace wavforge::cmd {
namespace {

struct InvocationCase {
  const char* name;
  std::vector<std::string> arguments;
  bool command_mode;
  bool echo_off;
  std::string script;
  std::vector<std::string> script_arguments;
  std::string command_line;
  bool fails;
};

class ParseInvocationTest : public ::testing::TestWithParam<InvocationCase> {};

TEST_P(ParseInvocationTest, ReadsTheCallLikeCmd) {
  const Invocation invocation = ParseInvocation(GetParam().arguments);
  EXPECT_EQ(invocation.command_mode, GetParam().command_mode);
  EXPECT_EQ(invocation.echo_off, GetParam().echo_off);
  EXPECT_EQ(invocation.script, GetParam().script);
  EXPECT_EQ(invocation.script_arguments, GetParam().script_arguments);
  EXPECT_EQ(invocation.command_line, GetParam().command_line);
  EXPECT_EQ(!invocation.error.empty(), GetParam().fails);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, ParseInvocationTest,
    ::testing::Values(
        InvocationCase{"Script",
                       {"/tmp/Larkspur140510.bat"},
                       false,
                       false,
                       "/tmp/Larkspur140510.bat",
                       {},
                       "",
                       false},
        InvocationCase{"ScriptArgumentsAsTyped",
                       {"job.bat", "plain", "two words", "", "a=b", R"("q")"},
                       false,
                       false,
                       "job.bat",
                       {"plain", R"("two words")", R"("")", R"("a=b")", R"("q")"},
                       "",
                       false},
        InvocationCase{"SwitchAfterTheScriptIsAnArgument",
                       {"job.bat", "/c"},
                       false,
                       false,
                       "job.bat",
                       {"/c"},
                       "",
                       false},
        InvocationCase{"CommandLine", {"/c", "echo", "hi"}, true, false, "", {}, "echo hi", false},
        InvocationCase{"QuietCommandLine",
                       {"/D", "/q", "/C", R"(del "a b")"},
                       true,
                       true,
                       "",
                       {},
                       R"(del "a b")",
                       false},
        InvocationCase{"IgnoredSwitches",
                       {"/e:on", "/v:off", "/s", "/k", "x"},
                       true,
                       false,
                       "",
                       {},
                       "x",
                       false},
        InvocationCase{"EmptyCommandLine", {"/c"}, true, false, "", {}, "", false},
        InvocationCase{"Nothing", {}, false, false, "", {}, "", true},
        InvocationCase{"OnlySwitches", {"/q"}, false, true, "", {}, "", true}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace wavforge::cmd

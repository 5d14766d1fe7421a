#include "cmd/expansion.h"

#include <gtest/gtest.h>

#include "cmd/variable_lookup.h"

namespace wavforge::cmd {
namespace {

const VariableList kVariables = {
    {"HOME", "/home/ann"}, {"Temp", "/var/tmp"}, {"TEMP", "/upper"},
    {"Path", "/opt/bin"},  {"B", "bee"},
};

ExpansionContext Context(ExpansionMode mode) {
  ExpansionContext context;
  context.mode = mode;
  context.script_path = "/tmp/Larkspur140510.bat";
  context.arguments = {"first", "\"two words\""};
  context.lookup = [](std::string_view name) { return FindVariable(kVariables, name); };
  return context;
}

struct ExpansionCase {
  const char* name;
  ExpansionMode mode;
  std::string line;
  std::string expected;
};

class ExpandPercentsTest : public ::testing::TestWithParam<ExpansionCase> {};

TEST_P(ExpandPercentsTest, ExpandsLikeCmd) {
  EXPECT_EQ(ExpandPercents(GetParam().line, Context(GetParam().mode)), GetParam().expected)
      << GetParam().line;
}

constexpr ExpansionMode kScript = ExpansionMode::kScript;
constexpr ExpansionMode kCommand = ExpansionMode::kCommandLine;

INSTANTIATE_TEST_SUITE_P(
    Script, ExpandPercentsTest,
    ::testing::Values(
        ExpansionCase{"ScriptPath", kScript, R"(del "%0")", R"(del "/tmp/Larkspur140510.bat")"},
        ExpansionCase{"MissingArgumentIsEmpty", kScript, "lame %1 --abr [%3]",
                      "lame first --abr []"},
        ExpansionCase{"AllArguments", kScript, "run %*", R"(run first "two words")"},
        ExpansionCase{"ArgumentWithoutQuotes", kScript, "[%~2]", "[two words]"},
        ExpansionCase{"DoublePercent", kScript, "100%%", "100%"},
        ExpansionCase{"DoublePercentBeforeDigit", kScript, "%%1", "%1"},
        ExpansionCase{"ArgumentInsidePercents", kScript, "%%%1%%", "%first%"},
        ExpansionCase{"ExactNameFirst", kScript, "%TEMP% %Temp%", "/upper /var/tmp"},
        ExpansionCase{"NameIgnoringCase", kScript, "%temp%;%PATH%", "/var/tmp;/opt/bin"},
        ExpansionCase{"UndefinedVanishes", kScript, "a%NOPE%b", "ab"},
        ExpansionCase{"UndefinedThenLonePercent", kScript, "%A%B%", "B"},
        ExpansionCase{"LonePercentInTheMiddle", kScript, "50% done", "50 done"},
        ExpansionCase{"LonePercentAtTheEnd", kScript, "ends with %", "ends with "}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    CommandLine, ExpandPercentsTest,
    ::testing::Values(ExpansionCase{"UndefinedRescansFromItsClosingPercent", kCommand, "%NOPE%B%",
                                    "%NOPEbee"},
                      ExpansionCase{"DoublePercentStays", kCommand, "100%%", "100%%"},
                      ExpansionCase{"DoublePercentAroundAVariable", kCommand, "%%B%%", "%bee%"},
                      ExpansionCase{"ArgumentsAreText", kCommand, "%1 %*", "%1 %*"},
                      ExpansionCase{"LonePercentAtTheEnd", kCommand, "50%", "50%"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(FindVariableTest, PrefersTheExactNameThenIgnoresCase) {
  const VariableList variables = {{"Path", "mixed"}, {"PATH", "upper"}, {"tmp", "lower"}};
  EXPECT_EQ(FindVariable(variables, "PATH"), "upper");
  EXPECT_EQ(FindVariable(variables, "Path"), "mixed");
  EXPECT_EQ(FindVariable(variables, "path"), "mixed");  // first one in environment order
  EXPECT_EQ(FindVariable(variables, "TMPX"), std::nullopt);
}

}  // namespace
}  // namespace wavforge::cmd

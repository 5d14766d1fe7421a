#include "cmd/expansion.h"

#include <gtest/gtest.h>

#include "cmd/variable_lookup.h"

namespace wavforge::cmd {
namespace {

const VariableList kVariables = {
    {"HOME", "/home/ann"}, {"Temp", "/var/tmp"}, {"TEMP", "/upper"},
    {"Path", "/opt/bin"},  {"B", "bee"},
};

std::string Expand(ExpansionMode mode, std::string_view line) {
  ExpansionContext context;
  context.mode = mode;
  context.script_path = "/tmp/Larkspur140510.bat";
  context.arguments = {"first", "\"two words\""};
  context.lookup = [](std::string_view name) { return FindVariable(kVariables, name); };
  return ExpandPercents(line, context);
}

TEST(ExpandPercentsTest, ScriptLinesExpandArgumentsAndDropWhatIsUndefined) {
  const std::pair<const char*, const char*> cases[] = {
      {R"(del "%0")", R"(del "/tmp/Larkspur140510.bat")"},
      {"lame %1 --abr [%3]", "lame first --abr []"},
      {"run %*", R"(run first "two words")"},
      {"[%~2]", "[two words]"},
      {"100%%", "100%"},
      {"%%1", "%1"},
      {"%%%1%%", "%first%"},
      {"%TEMP% %Temp%", "/upper /var/tmp"},  // the exact name first
      {"%temp%;%PATH%", "/var/tmp;/opt/bin"},
      {"a%NOPE%b", "ab"},
      {"%A%B%", "B"},
      {"50% done", "50 done"},
      {"ends with %", "ends with "},
  };
  for (const auto& [line, expected] : cases) {
    EXPECT_EQ(Expand(ExpansionMode::kScript, line), expected) << line;
  }
}

TEST(ExpandPercentsTest, CommandLinesKeepWhatIsUndefined) {
  const std::pair<const char*, const char*> cases[] = {
      {"%NOPE%B%", "%NOPEbee"},  // scanning goes on from the closing percent sign
      {"100%%", "100%%"},       {"%%B%%", "%bee%"}, {"%1 %*", "%1 %*"}, {"50%", "50%"},
  };
  for (const auto& [line, expected] : cases) {
    EXPECT_EQ(Expand(ExpansionMode::kCommandLine, line), expected) << line;
  }
}

TEST(FindVariableTest, PrefersTheExactNameThenIgnoresCase) {
  const VariableList variables = {{"Path", "mixed"}, {"PATH", "upper"}, {"tmp", "lower"}};
  EXPECT_EQ(FindVariable(variables, "PATH"), "upper");
  EXPECT_EQ(FindVariable(variables, "Path"), "mixed");
  EXPECT_EQ(FindVariable(variables, "path"), "mixed");  // first one in environment order
  EXPECT_EQ(FindVariable(variables, "TMPX"), std::nullopt);
}

}  // namespace
}  // namespace wavforge::cmd

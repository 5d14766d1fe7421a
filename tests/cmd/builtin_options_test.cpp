#include <gtest/gtest.h>

#include "cmd/delete_options.h"
#include "cmd/start_options.h"

namespace wavforge::cmd {
namespace {

struct DeleteCase {
  const char* name;
  std::string arguments;
  bool recurse;
  bool help;
  std::vector<std::string> names;
};

class ParseDeleteOptionsTest : public ::testing::TestWithParam<DeleteCase> {};

TEST_P(ParseDeleteOptionsTest, TellsSwitchesFromNames) {
  const DeleteOptions options = ParseDeleteOptions(GetParam().arguments);
  EXPECT_EQ(options.recurse, GetParam().recurse);
  EXPECT_EQ(options.show_help, GetParam().help);
  EXPECT_EQ(options.names, GetParam().names);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, ParseDeleteOptionsTest,
    ::testing::Values(DeleteCase{"QuotedPath",
                                 R"( "/tmp/Larkspur140510.bat")",
                                 false,
                                 false,
                                 {"/tmp/Larkspur140510.bat"}},
                      DeleteCase{"SwitchesAndSeveralNames",
                                 R"( /q /f "a b.txt" c.txt)",
                                 false,
                                 false,
                                 {"a b.txt", "c.txt"}},
                      DeleteCase{"Recurse", " /S *.tmp", true, false, {"*.tmp"}},
                      DeleteCase{"GluedSwitches", "/Q/f/s x", true, false, {"x"}},
                      DeleteCase{"Attributes", " /a:h /A x", false, false, {"x"}},
                      DeleteCase{
                          "AbsolutePathIsNoSwitch", " /tmp/x.wav", false, false, {"/tmp/x.wav"}},
                      DeleteCase{"UnknownLetterIsAPath", " /qx", false, false, {"/qx"}},
                      DeleteCase{"QuotedSwitchIsAName", R"( "/q")", false, false, {"/q"}},
                      DeleteCase{"Help", " /?", false, true, {}},
                      DeleteCase{"EmptyQuotesNameNothing", R"( "")", false, false, {}},
                      DeleteCase{"Nothing", "", false, false, {}}),
    [](const auto& row) { return std::string(row.param.name); });

struct StartCase {
  const char* name;
  std::string arguments;
  std::string title;
  bool wait;
  std::optional<int> niceness;
  std::string folder;
  std::string command_line;
  std::string error;
};

class ParseStartOptionsTest : public ::testing::TestWithParam<StartCase> {};

TEST_P(ParseStartOptionsTest, FindsTitleSwitchesAndProgram) {
  const StartOptions options = ParseStartOptions(GetParam().arguments);
  EXPECT_EQ(options.title, GetParam().title);
  EXPECT_EQ(options.wait, GetParam().wait);
  EXPECT_EQ(options.niceness, GetParam().niceness);
  EXPECT_EQ(options.folder, GetParam().folder);
  EXPECT_EQ(options.command_line, GetParam().command_line);
  EXPECT_EQ(options.error, GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, ParseStartOptionsTest,
    ::testing::Values(
        StartCase{"EmptyTitle", R"( "" /b sleep 5)", "", false, {}, "", "sleep 5", ""},
        StartCase{"WaitAtLowPriority", R"( "Encoder" /WAIT /low lame -V2 "a b.wav")", "Encoder",
                  true, 19, "", R"(lame -V2 "a b.wav")", ""},
        StartCase{"BelowNormal", R"( /belownormal /min prog "x y")", "", false, 10, "",
                  R"(prog "x y")", ""},
        StartCase{"Folder", " /d /srv/rec prog", "", false, {}, "/srv/rec", "prog", ""},
        StartCase{
            "AbsoluteProgram", " /usr/bin/prog -x", "", false, {}, "", "/usr/bin/prog -x", ""},
        StartCase{"FirstQuotedWordIsTheTitle",
                  R"( "/opt/my tools/prog" arg)",
                  "/opt/my tools/prog",
                  false,
                  {},
                  "",
                  "arg",
                  ""},
        StartCase{"FolderWithoutValue",
                  " /d",
                  "",
                  false,
                  {},
                  "",
                  "",
                  "The syntax of the command is incorrect."},
        StartCase{"Nothing", "", "", false, {}, "", "", ""}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace wavforge::cmd

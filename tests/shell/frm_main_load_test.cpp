#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <string>
#include <vector>

#include "shell/main_window_fixture.h"

namespace wavforge::testing_main {
namespace {

TEST_F(MainWindowTest, LoadShowsTheHourglassUntilTheWindowIsReady) {
  ui.pointer = platform::kIBeamPointer;
  Loaded();
  EXPECT_EQ(ui.pointer_changes,
            (std::vector<int>{platform::kHourglassPointer, platform::kIBeamPointer}));
  EXPECT_EQ(ui.pointer, platform::kIBeamPointer);
}

TEST_F(MainWindowTest, LoadReplacesTheDesignVersionByTheProgramsOwn) {
  const std::string design = Window().Find("lblVersion")->Caption.value();
  window->Load();
  const std::string shown = Get("lblVersion").Caption.value();
  EXPECT_NE(shown, design);
  EXPECT_TRUE(std::regex_match(shown, std::regex("(0|[1-9][0-9]*)\\.(0|[1-9][0-9]*)\\."
                                                 "(0|[1-9][0-9]*)")))
      << shown;
}

TEST_F(MainWindowTest, LoadReadsTheLanguageNamedByTheSettingsAndShowsTheWindow) {
  Loaded();
  EXPECT_TRUE(window->Visible);
  EXPECT_EQ(window->Caption, "Encoder window");
  EXPECT_EQ(Get("cmdSelectFile").Caption, "Choose files");
  EXPECT_EQ(Get("cmdSelectFile").ToolTipText, "Pick the recordings");
  EXPECT_EQ(Get("chkDelTemp").Caption, "Remove sources");
  // Controls without a key keep their design texts.
  EXPECT_EQ(Get("cmdStart").Caption, "Start");
  EXPECT_EQ(Get("cmdStop").Caption, "Stop");
  EXPECT_EQ(Get("txtlblF1").Text, "Help = F1 \xE2\x80\xA2 Assistant = F2");
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(MainWindowTest, LoadWithoutALanguageKeepsTheDesignTexts) {
  SetSettings("", "DelTemp=1\n");
  Loaded();
  EXPECT_EQ(window->Caption, "wavforge \xC2\xB7 Larkspur \xC2\xB7 Offline Encoder");
  EXPECT_EQ(Get("cmdSelectFile").Caption, "Select file(s)");
  EXPECT_EQ(Get("chkDelTemp").Caption, "Delete temporary files after encoding");
}

TEST_F(MainWindowTest, LoadBringsTheHelpLineToTheFront) {
  Loaded();
  const int help_line = Get("txtlblF1").ZOrder;
  for (const auto& control : window->Controls()) {
    if (control->Name() != "txtlblF1") {
      EXPECT_LT(control->ZOrder, help_line) << control->Name();
    }
  }
  EXPECT_LT(Get("picOptions").ZOrder, Get("cmdStart").ZOrder);
}

struct DelTempCase {
  const char* setting;
  int box;
  bool del_temp;
};

class DelTempLoadTest : public MainWindowTest, public ::testing::WithParamInterface<DelTempCase> {};

TEST_P(DelTempLoadTest, TheBoxShowsTheSettingReadAtStart) {
  SetSettings("English", std::string(GetParam().setting));
  Loaded();
  EXPECT_EQ(Get("chkDelTemp").Value, GetParam().box) << GetParam().setting;
  EXPECT_EQ(program.settings.DelTemp, GetParam().del_temp);
}

INSTANTIATE_TEST_SUITE_P(Table, DelTempLoadTest,
                         ::testing::Values(DelTempCase{"DelTemp=1\n", 1, true},
                                           DelTempCase{"DelTemp=0\n", 0, false},
                                           DelTempCase{"", 1, true}));

struct PathCase {
  const char* name;
  std::string path;
  std::string expected;
};

class ToolPathLoadTest : public MainWindowTest, public ::testing::WithParamInterface<PathCase> {};

TEST_P(ToolPathLoadTest, TheToolFolderIsOnTheSearchPathOnce) {
  environment.variables["PATH"] = GetParam().path;
  Loaded();
  EXPECT_EQ(environment.variables["PATH"], GetParam().expected) << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(
    Table, ToolPathLoadTest,
    ::testing::Values(
        PathCase{"appended", "/usr/bin", "/usr/bin:/srv/common/Larkspur"},
        PathCase{"already there", "/srv/common/Larkspur:/usr/bin", "/srv/common/Larkspur:/usr/bin"},
        PathCase{"there in other letters", "/SRV/Common/larkspur", "/SRV/Common/larkspur"}));

struct CommandLineCase {
  const char* name;
  std::string command_line;
  std::vector<std::string> expected;
};

class CommandLineLoadTest : public MainWindowTest,
                            public ::testing::WithParamInterface<CommandLineCase> {};

TEST_P(CommandLineLoadTest, TheCommandLineReplacesTheEarlierSelection) {
  program.file_list.Replace({"/earlier.wav"});
  Loaded(GetParam().command_line);
  EXPECT_EQ(program.file_list.Items(), GetParam().expected) << GetParam().name;
  // Start waits for the timer, whatever was selected.
  EXPECT_FALSE(Get("cmdStart").Enabled);
}

INSTANTIATE_TEST_SUITE_P(
    Table, CommandLineLoadTest,
    ::testing::Values(
        CommandLineCase{"empty", "", {}},
        CommandLineCase{"two names", "a.wav b.wav", {"a.wav", "b.wav"}},
        CommandLineCase{"quoted with blank", "\"/rec/My Song.wav\"", {"/rec/My Song.wav", ""}},
        CommandLineCase{"quoted then more", "\"/rec/a b.wav\" c.wav", {"/rec/a b.wav", "c.wav"}}));

struct ScaleCase {
  double twips_per_pixel;
  double start_left, start_width, select_font, window_inner_width, window_width, line_y;
};

class LayoutLoadTest : public MainWindowTest, public ::testing::WithParamInterface<ScaleCase> {};

TEST_P(LayoutLoadTest, TheWindowKeepsItsPixelSize) {
  ui.twips_per_pixel_x = ui.twips_per_pixel_y = GetParam().twips_per_pixel;
  Loaded();
  const Control& start = Get("cmdStart");
  EXPECT_EQ(start.Left, GetParam().start_left);
  EXPECT_EQ(start.Width, GetParam().start_width);
  EXPECT_NEAR(Get("cmdSelectFile").Font->Size, GetParam().select_font, 1e-4);
  EXPECT_EQ(window->ScaleWidth, GetParam().window_inner_width);
  EXPECT_EQ(window->Width, GetParam().window_width);
  EXPECT_EQ(Get("Line1", 2).Y1, GetParam().line_y);
  // The window's own font is the design one.
  EXPECT_DOUBLE_EQ(window->Font.Size, 7.8);
  // In pixels the inner area is the same on every screen.
  EXPECT_NEAR(window->ScaleWidth / GetParam().twips_per_pixel, 7284 / 12.0, 0.5);
}

INSTANTIATE_TEST_SUITE_P(Table, LayoutLoadTest,
                         ::testing::Values(ScaleCase{12, 4500, 1932, 7.8, 7284, 7380, 1080},
                                           ScaleCase{15, 5625, 2415, 9.75, 9105, 9201, 1350},
                                           ScaleCase{10, 3750, 1610, 6.5, 6070, 6166, 900}));

}  // namespace
}  // namespace wavforge::testing_main

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <string>
#include <utility>
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

// The settings are read once per program run, so each case needs a fresh program.
class DelTempLoadTest : public MainWindowTest,
                        public ::testing::WithParamInterface<std::pair<const char*, int>> {};

TEST_P(DelTempLoadTest, TheBoxShowsTheSettingReadAtStart) {
  const auto [setting, box] = GetParam();
  SetSettings("English", setting);
  Loaded();
  EXPECT_EQ(Get("chkDelTemp").Value, box) << setting;
  EXPECT_EQ(program.settings.DelTemp, box == 1);
}

INSTANTIATE_TEST_SUITE_P(Table, DelTempLoadTest,
                         ::testing::Values(std::pair{"DelTemp=0\n", 0}, std::pair{"", 1}));

TEST_F(MainWindowTest, TheToolFolderIsOnTheSearchPathOnce) {
  const std::pair<const char*, const char*> cases[] = {
      {"/usr/bin", "/usr/bin:/srv/common/Larkspur"},
      {"/srv/common/Larkspur:/usr/bin", "/srv/common/Larkspur:/usr/bin"},
      {"/SRV/Common/larkspur", "/SRV/Common/larkspur"},  // there in other letters
  };
  for (const auto& [path, expected] : cases) {
    environment.variables["PATH"] = path;
    Loaded();
    EXPECT_EQ(environment.variables["PATH"], expected) << path;
  }
}

TEST_F(MainWindowTest, TheCommandLineReplacesTheEarlierSelection) {
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {"", {}},
      {"\"/rec/a b.wav\" c.wav", {"/rec/a b.wav", "c.wav"}},
  };
  for (const auto& [command_line, expected] : cases) {
    program.file_list.Replace({"/earlier.wav"});
    Loaded(command_line);
    EXPECT_EQ(program.file_list.Items(), expected) << command_line;
    // Start waits for the timer, whatever was selected.
    EXPECT_FALSE(Get("cmdStart").Enabled);
  }
}

TEST_F(MainWindowTest, TheWindowKeepsItsPixelSize) {
  struct {
    double twips_per_pixel;
    double start_left, start_width, select_font, window_inner_width, window_width, line_y;
  } const cases[] = {{15, 5625, 2415, 9.75, 9105, 9201, 1350},
                     {10, 3750, 1610, 6.5, 6070, 6166, 900}};
  for (const auto& c : cases) {
    ui.twips_per_pixel_x = ui.twips_per_pixel_y = c.twips_per_pixel;
    Loaded();
    const Control& start = Get("cmdStart");
    EXPECT_EQ(start.Left, c.start_left);
    EXPECT_EQ(start.Width, c.start_width);
    EXPECT_NEAR(Get("cmdSelectFile").Font->Size, c.select_font, 1e-4);
    EXPECT_EQ(window->ScaleWidth, c.window_inner_width);
    EXPECT_EQ(window->Width, c.window_width);
    EXPECT_EQ(Get("Line1", 2).Y1, c.line_y);
    // The window's own font is the design one.
    EXPECT_DOUBLE_EQ(window->Font.Size, 7.8);
    // In pixels the inner area is the same on every screen.
    EXPECT_NEAR(window->ScaleWidth / c.twips_per_pixel, 7284 / 12.0, 0.5);
  }
}

}  // namespace
}  // namespace wavforge::testing_main

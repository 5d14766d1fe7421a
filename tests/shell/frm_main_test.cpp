#include "shell/frm_main.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "shell/main_window_fixture.h"

namespace wavforge {
namespace {

using testing_main::MainWindowTest;

TEST_F(MainWindowTest, LoadShowsTheHourglassAndBringsTheHelpLineToTheFront) {
  ui.pointer = platform::kIBeamPointer;
  Loaded();
  EXPECT_EQ(ui.pointer_changes,
            (std::vector<int>{platform::kHourglassPointer, platform::kIBeamPointer}));
  const int help_line = Get("txtlblF1").ZOrder;
  for (const auto& control : window->Controls()) {
    EXPECT_TRUE(control->Name() == "txtlblF1" || control->ZOrder < help_line) << control->Name();
  }
}

TEST_F(MainWindowTest, TheBoxShowsTheDeleteSettingReadAtStart) {
  Loaded("DelTemp=0\n");
  EXPECT_EQ(Get("chkDelTemp").Value, 0);
}

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

TEST_F(MainWindowTest, HelpKeysAskTheAssistantForAPage) {
  Loaded();
  // Key and shift state; the page asked for (none: the key passes on) and whether online.
  const std::tuple<int, int, const char*, bool> cases[] = {
      {kKeyF1, 0, "encode.htm", true},
      {kKeyF1, kAltMask, "encode.htm", false},
      {kKeyF2, 0, "wizard.htm", true},
      {kKeyF2, kAltMask, "wizard.htm", false},
      {kKeyF3, kAltMask, "search.htm", true},
      {kKeyF12, kAltMask, "encode.htm", true},
      {115, 0, nullptr, false},  // F4
  };
  for (const auto& [pressed, shift, page, online] : cases) {
    assistant.pages.clear();
    int key = pressed;
    window->KeyDown(key, shift);
    EXPECT_EQ(key, page ? 0 : pressed) << pressed << " " << shift;
    ASSERT_EQ(assistant.pages.size(), page ? 1u : 0u) << pressed << " " << shift;
    if (!page) continue;
    EXPECT_EQ(assistant.pages[0].page, page);
    EXPECT_EQ(assistant.pages[0].online, online) << pressed << " " << shift;
  }
}

TEST_F(MainWindowTest, AKeyArrivingWhileOneIsHandledPassesOnUnchanged) {
  Loaded();
  int nested_key = kKeyF3;
  assistant.while_opening = [&] {
    assistant.while_opening = nullptr;
    window->KeyDown(nested_key, 0);
  };
  int key = kKeyF1;
  window->KeyDown(key, 0);
  EXPECT_EQ(key, 0);
  EXPECT_EQ(nested_key, kKeyF3);
  ASSERT_EQ(assistant.pages.size(), 1u);
  // Afterwards keys are handled again.
  window->KeyDown(nested_key, 0);
  EXPECT_EQ(nested_key, 0);
}

TEST_F(MainWindowTest, StopUnloadsOnceWhateverCloseFollows) {
  Loaded();
  files.AddFile("/tmp/t/Larkspur140510.bat", "title Larkspur Encoder");
  window->Click(Get("cmdStop"));
  EXPECT_TRUE(window->Unloaded());
  EXPECT_EQ(files.ListFiles("/tmp/t"), std::vector<std::string>{});
  EXPECT_EQ(assistant.unloads, 1);
  // The close that follows the button unloads nothing twice.
  files.AddFile("/tmp/t/later.bat", "x");
  window->Unload();
  EXPECT_EQ(assistant.unloads, 1);
  EXPECT_TRUE(files.Contents("/tmp/t/later.bat"));
}

}  // namespace
}  // namespace wavforge

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "fakes/fake_user_interface.h"
#include "shell/cls_mouse_pointer.h"
#include "shell/help_pages.h"
#include "shell/version_label.h"
#include "ui/form.h"

namespace wavforge {
namespace {

TEST(VersionLabelTest, ShowsThreeNumbersWithoutLeadingZeros) {
  const std::pair<const char*, const char*> cases[] = {
      {"2.04.0069", "2.4.69"}, {"10.20.300.7", "10.20.300"}, {"3", "3.0.0"},
      {"1.2", "1.2.0"},        {"1.2.3-rc1", "1.2.3"},       {"", "0.0.0"},
  };
  for (const auto& [dotted, label] : cases) EXPECT_EQ(VersionLabel(dotted), label) << dotted;
}

TEST(MousePointerTest, TheGuardPutsBackWhatTheScreenShowedBefore) {
  // The pointer before, the codes substituted while the guard lives, every change seen.
  const std::tuple<int, std::vector<int>, std::vector<int>> cases[] = {
      {0, {}, {11, 0}},
      {99, {}, {11, 99}},
      {1, {2, 12}, {11, 2, 12, 1}},
  };
  for (const auto& [before, substitutes, changes] : cases) {
    fakes::FakeUserInterface ui;
    ui.pointer = before;
    {
      clsMousePointer guard(ui);
      EXPECT_EQ(ui.pointer, platform::kHourglassPointer);
      for (const int code : substitutes) guard.SetMousePointer(code);
    }
    EXPECT_EQ(ui.pointer_changes, changes) << before;
    EXPECT_EQ(ui.pointer, before);
  }
}

TEST(MousePointerDefaultTest, SubstitutingWithoutACodeShowsTheHourglass) {
  fakes::FakeUserInterface ui;
  {
    clsMousePointer guard(ui);
    guard.SetMousePointer(platform::kCrossPointer);
    guard.SetMousePointer();
    EXPECT_EQ(ui.pointer, platform::kHourglassPointer);
  }
  EXPECT_EQ(ui.pointer, platform::kDefaultPointer);
}

TEST(NestedMousePointerTest, GuardsUnwindInTurn) {
  fakes::FakeUserInterface ui;
  ui.pointer = platform::kArrowPointer;
  {
    clsMousePointer outer(ui);
    outer.SetMousePointer(platform::kCrossPointer);
    { clsMousePointer inner(ui); }
    EXPECT_EQ(ui.pointer, platform::kCrossPointer);
  }
  EXPECT_EQ(ui.pointer, platform::kArrowPointer);
}

TEST(HelpPageTagTest, TheTagNamesTheWindowsOwnPage) {
  EXPECT_EQ(HelpPageForKey(kKeyF1, 0, "options")->page, "options.htm");
  EXPECT_EQ(HelpPageForKey(kKeyF12, kAltMask, "x")->page, "x.htm");
  EXPECT_EQ(HelpPageForKey(kKeyF2, 0, "options")->page, "wizard.htm");
  EXPECT_FALSE(HelpPageForKey(0, kAltMask, "options"));
}

}  // namespace
}  // namespace wavforge

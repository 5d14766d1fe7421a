#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/fake_user_interface.h"
#include "shell/cls_mouse_pointer.h"
#include "shell/help_pages.h"
#include "shell/version_label.h"
#include "ui/form.h"

namespace wavforge {
namespace {

struct VersionCase {
  std::string dotted;
  std::string label;
};

class VersionLabelTest : public ::testing::TestWithParam<VersionCase> {};

TEST_P(VersionLabelTest, ShowsThreeNumbersWithoutLeadingZeros) {
  EXPECT_EQ(VersionLabel(GetParam().dotted), GetParam().label) << GetParam().dotted;
}

INSTANTIATE_TEST_SUITE_P(Table, VersionLabelTest,
                         ::testing::Values(VersionCase{"2.04.0069", "2.4.69"},
                                           VersionCase{"0.1.0", "0.1.0"},
                                           VersionCase{"10.20.300.7", "10.20.300"},
                                           VersionCase{"3", "3.0.0"}, VersionCase{"1.2", "1.2.0"},
                                           VersionCase{"1.2.3-rc1", "1.2.3"},
                                           VersionCase{"", "0.0.0"}));

struct PointerCase {
  const char* name;
  int before;
  std::vector<int> substitutes;
  std::vector<int> changes;
};

class MousePointerTest : public ::testing::TestWithParam<PointerCase> {};

TEST_P(MousePointerTest, TheGuardPutsBackWhatTheScreenShowedBefore) {
  fakes::FakeUserInterface ui;
  ui.pointer = GetParam().before;
  {
    clsMousePointer guard(ui);
    EXPECT_EQ(ui.pointer, platform::kHourglassPointer) << GetParam().name;
    for (const int code : GetParam().substitutes) guard.SetMousePointer(code);
  }
  EXPECT_EQ(ui.pointer_changes, GetParam().changes) << GetParam().name;
  EXPECT_EQ(ui.pointer, GetParam().before) << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(
    Table, MousePointerTest,
    ::testing::Values(PointerCase{"default", 0, {}, {11, 0}},
                      PointerCase{"custom before", 99, {}, {11, 99}},
                      PointerCase{"substituted while alive", 1, {2, 12}, {11, 2, 12, 1}}));

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

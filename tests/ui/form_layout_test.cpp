#include "ui/form_layout.h"

#include <gtest/gtest.h>

namespace wavforge {
namespace {

// A window laid out for 12 twips per pixel with a control of each kind scaling treats apart.
class FormLayoutTest : public ::testing::Test {
 protected:
  FormLayoutTest() {
    window.Width = 7404;  // 60 twips of border on each side, title bar 420
    window.Height = 5604;
    window.ScaleWidth = 7284;
    window.ScaleHeight = 5184;
    window.Font = {"Tahoma", 7.8};
    auto& button = window.Add("cmdStart", ControlKind::kCommandButton);
    button.Move(1200, 600, 1500, 312);
    button.Font = FontSpec{"Tahoma", 8};
    auto& line = window.Add("Line1", ControlKind::kLine, 0);
    line.X1 = 840;
    line.X2 = 6410;
    line.Y1 = 4020;
    line.Y2 = 4020;
    auto& picture = window.Add("picOptions", ControlKind::kPictureBox);
    picture.Move(0, 0, 7272, 5172);
    picture.ScaleMode = 0;
    picture.ScaleLeft = 0;
    picture.ScaleTop = 0;
    picture.ScaleWidth = 100;
    picture.ScaleHeight = 50;
    picture.Font = FontSpec{"Tahoma", 8};
    auto& combo = window.Add("cboList", ControlKind::kComboBox);
    combo.Move(100, 200, 300, 400);
    combo.Font = FontSpec{"Tahoma", 8};
    auto& menu = window.Add("mnuFile", ControlKind::kMenuItem);
    menu.Caption = "File";
    window.Add("tmrStillWorking", ControlKind::kTimer);
  }
  Control& Get(const char* name, int index = -1) { return *window.Find(name, index); }

  Form window{"frmTest"};
};

TEST_F(FormLayoutTest, At96DotsPerInchEverythingGrowsByAQuarter) {
  const LayoutScale scale = ScaleFormLayout(window, true, 15, 15);
  EXPECT_EQ(scale.LayoutScaleX, 1.25f);
  EXPECT_EQ(Get("cmdStart").Left, 1500);
  EXPECT_EQ(Get("cmdStart").Width, 1875);
  EXPECT_EQ(Get("cmdStart").Font->Size, 10);
  // The border stays, the inner area scales; the window's own font does not change.
  EXPECT_EQ(window.Width, 7404 - 7284 + 9105);
  EXPECT_EQ(window.Height, 5604 - 5184 + 6480);
  EXPECT_EQ(window.Font.Size, 7.8);
}

TEST_F(FormLayoutTest, WidthsFollowXAndHeightsAndFontsFollowY) {
  ScaleFormLayout(window, false, 18, 9);  // x 1.5, y 0.75
  const Control& button = Get("cmdStart");
  EXPECT_EQ(button.Left, 1800);
  EXPECT_EQ(button.Width, 2250);
  EXPECT_EQ(button.Top, 450);
  EXPECT_EQ(button.Height, 234);
  EXPECT_EQ(button.Font->Size, 6);
  const Control& line = Get("Line1", 0);
  EXPECT_EQ(line.X1, 1260);
  EXPECT_EQ(line.X2, 9615);
  EXPECT_EQ(line.Y1, 3015);
  const Control& combo = Get("cboList");
  EXPECT_EQ(combo.Left, 150);
  EXPECT_EQ(combo.Height, 300);
  EXPECT_EQ(combo.Font->Size, 6);
  // Without resizing, the window keeps its outer size.
  EXPECT_EQ(window.Width, 7404);
  EXPECT_EQ(window.Height, 5604);
}

TEST_F(FormLayoutTest, AUserCoordinateSystemSurvivesTheMove) {
  ScaleFormLayout(window, true, 15, 15);
  const Control& picture = Get("picOptions");
  EXPECT_EQ(picture.Width, 9090);
  EXPECT_EQ(picture.Height, 6465);
  EXPECT_EQ(picture.ScaleWidth, 100);
  EXPECT_EQ(picture.ScaleHeight, 50);
  EXPECT_EQ(picture.Font->Size, 10);
}

TEST_F(FormLayoutTest, MenusAndTimersAreLeftAlone) {
  ScaleFormLayout(window, true, 15, 15);
  EXPECT_EQ(Get("mnuFile").Left, std::nullopt);
  EXPECT_EQ(Get("mnuFile").Caption, "File");
  EXPECT_EQ(Get("tmrStillWorking").Left, std::nullopt);
}

}  // namespace
}  // namespace wavforge

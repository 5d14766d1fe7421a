#include "ui/form_layout.h"

#include <gtest/gtest.h>

namespace wavforge {
namespace {

// Each kind of control scales apart: a button by its box, a line by its ends, a combo box by
// its box and font.
TEST(FormLayoutTest, WidthsFollowXAndHeightsAndFontsFollowY) {
  Form window{"frmTest"};
  window.Width = 7404;
  window.Height = 5604;
  window.ScaleWidth = 7284;
  window.ScaleHeight = 5184;
  auto& button = window.Add("cmdStart", ControlKind::kCommandButton);
  button.Move(1200, 600, 1500, 312);
  button.Font = FontSpec{"Tahoma", 8};
  auto& line = window.Add("Line1", ControlKind::kLine, 0);
  line.X1 = 840;
  line.X2 = 6410;
  line.Y1 = line.Y2 = 4020;
  auto& combo = window.Add("cboList", ControlKind::kComboBox);
  combo.Move(100, 200, 300, 400);
  combo.Font = FontSpec{"Tahoma", 8};

  ScaleFormLayout(window, false, 18, 9);  // x 1.5, y 0.75
  EXPECT_EQ(button.Left, 1800);
  EXPECT_EQ(button.Width, 2250);
  EXPECT_EQ(button.Top, 450);
  EXPECT_EQ(button.Height, 234);
  EXPECT_EQ(button.Font->Size, 6);
  EXPECT_EQ(line.X1, 1260);
  EXPECT_EQ(line.X2, 9615);
  EXPECT_EQ(line.Y1, 3015);
  EXPECT_EQ(combo.Left, 150);
  EXPECT_EQ(combo.Height, 300);
  EXPECT_EQ(combo.Font->Size, 6);
  // Without resizing, the window keeps its outer size.
  EXPECT_EQ(window.Width, 7404);
  EXPECT_EQ(window.Height, 5604);
}

}  // namespace
}  // namespace wavforge

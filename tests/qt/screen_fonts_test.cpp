#include "qt/screen_fonts.h"

#include <QFontInfo>

#include "desktop_window_fixture.h"

namespace wavforge::qt {
namespace {

// The main window names Windows fonts; the screen shows them or the free font standing in.
TEST(ScreenFontTest, WindowsFontsComeOutAsThemselvesOrTheirStandIn) {
  for (const auto& [name, stand_in] :
       {std::pair{"Tahoma", "DejaVu Sans Condensed"}, std::pair{"Verdana", "DejaVu Sans"},
        std::pair{"Microsoft Sans Serif", "Liberation Sans"}}) {
    FontSpec design_font;
    design_font.Name = name;
    design_font.Size = 9.75;
    design_font.Bold = true;
    const QFont font = ScreenFont(design_font);
    const QString family = QFontInfo(font).family();
    EXPECT_TRUE(family == QString::fromUtf8(name) || family == QString::fromUtf8(stand_in))
        << name << " came out as " << family.toStdString();
    EXPECT_DOUBLE_EQ(font.pointSizeF(), 9.75);
    EXPECT_TRUE(font.bold());
  }
}

// Laid out for 120 dots per inch, the window keeps its pixels on the offscreen screen's 96:
// its fonts grow by a quarter in points.
TEST_F(DesktopWindowTest, FontsFollowTheScreensDotsPerInch) {
  WriteSettings("English");
  Open();
  EXPECT_NEAR(Widget("cmdSelectFile")->font().pointSizeF(), 7.8 * 1.25, 1e-3);
}

}  // namespace
}  // namespace wavforge::qt

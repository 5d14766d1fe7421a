#include "qt/screen_fonts.h"

#include <gtest/gtest.h>

#include <QFontInfo>

namespace wavforge::qt {
namespace {

struct FontCase {
  const char* form_font;
  const char* stand_in;
};

class ScreenFontTest : public ::testing::TestWithParam<FontCase> {};

// The main window names Windows fonts; the screen shows them or the free font standing in.
TEST_P(ScreenFontTest, WindowsFontsComeOutAsThemselvesOrTheirStandIn) {
  FontSpec design_font;
  design_font.Name = GetParam().form_font;
  design_font.Size = 9.75;
  design_font.Bold = true;
  design_font.Underline = true;
  const QFont font = ScreenFont(design_font);
  const QString family = QFontInfo(font).family();
  EXPECT_TRUE(family == QString::fromUtf8(GetParam().form_font) ||
              family == QString::fromUtf8(GetParam().stand_in))
      << GetParam().form_font << " came out as " << family.toStdString();
  EXPECT_DOUBLE_EQ(font.pointSizeF(), 9.75);
  EXPECT_TRUE(font.bold());
  EXPECT_TRUE(font.underline());
  EXPECT_FALSE(font.italic());
}

INSTANTIATE_TEST_SUITE_P(Table, ScreenFontTest,
                         ::testing::Values(FontCase{"Tahoma", "DejaVu Sans Condensed"},
                                           FontCase{"Verdana", "DejaVu Sans"},
                                           FontCase{"Microsoft Sans Serif", "Liberation Sans"}));

}  // namespace
}  // namespace wavforge::qt

#include "qt/screen_fonts.h"

#include <QStringList>

namespace wavforge::qt {

void AddFontSubstitutes() {
  QFont::insertSubstitutions(
      QStringLiteral("Tahoma"),
      QStringList{QStringLiteral("DejaVu Sans Condensed"), QStringLiteral("Liberation Sans"),
                  QStringLiteral("DejaVu Sans")});
  QFont::insertSubstitutions(
      QStringLiteral("Verdana"),
      QStringList{QStringLiteral("DejaVu Sans"), QStringLiteral("Liberation Sans")});
  QFont::insertSubstitutions(
      QStringLiteral("Microsoft Sans Serif"),
      QStringList{QStringLiteral("Liberation Sans"), QStringLiteral("DejaVu Sans")});
}

QFont ScreenFont(const FontSpec& design_font) {
  QFont font(QString::fromStdString(design_font.Name));
  if (design_font.Size > 0) font.setPointSizeF(design_font.Size);
  font.setBold(design_font.Bold);
  font.setItalic(design_font.Italic);
  font.setUnderline(design_font.Underline);
  return font;
}

}  // namespace wavforge::qt

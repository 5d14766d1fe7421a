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

QFont ScreenFont(const FontSpec& spec) {
  QFont font(QString::fromStdString(spec.Name));
  if (spec.Size > 0) font.setPointSizeF(spec.Size);
  font.setBold(spec.Bold);
  font.setItalic(spec.Italic);
  font.setUnderline(spec.Underline);
  return font;
}

}  // namespace wavforge::qt

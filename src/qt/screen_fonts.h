#pragma once

#include <QFont>

#include "ui/control.h"

namespace wavforge::qt {

// The forms name Windows fonts. Where those are missing, free fonts of like shape and width
// stand in: DejaVu Sans Condensed for Tahoma, DejaVu Sans for Verdana (from which it descends in
// proportions), Liberation Sans for Microsoft Sans Serif. Called once before any window.
void AddFontSubstitutes();

// A form font as the toolkit's, size in points.
QFont ScreenFont(const FontSpec& design_font);

}  // namespace wavforge::qt

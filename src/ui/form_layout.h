#pragma once

#include "ui/form.h"

namespace wavforge {

// The factors that map a layout made for 12 twips per pixel (120 dots per inch) to the screen.
struct LayoutScale {
  float LayoutScaleX = 1.0f;
  float LayoutScaleY = 1.0f;
};

// The factors of a screen with these twips per pixel.
LayoutScale LayoutScaleFor(double twips_per_pixel_x, double twips_per_pixel_y);

// Scales the positions, sizes and fonts of every control of a window by the screen's factors,
// so that it keeps the pixel size it has at 120 dots per inch; with resizeWindow the window's
// inner area scales too and its border stays. Returns the factors used.
LayoutScale ScaleFormLayout(Form& window, bool resizeWindow, double twips_per_pixel_x,
                            double twips_per_pixel_y);

}  // namespace wavforge

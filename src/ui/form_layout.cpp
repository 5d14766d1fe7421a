#include "ui/form_layout.h"

#include <cmath>

namespace wavforge {
namespace {

// Positions are kept in whole twips.
double Twips(double value) {
  return std::round(value);
}

void ScaleFont(Control& control, float factor) {
  if (control.Font) control.Font->Size *= factor;
}

}  // namespace

LayoutScale LayoutScaleFor(double twips_per_pixel_x, double twips_per_pixel_y) {
  return {static_cast<float>(twips_per_pixel_x) / 12.0f,
          static_cast<float>(twips_per_pixel_y) / 12.0f};
}

LayoutScale ScaleFormLayout(Form& window, bool resizeWindow, double twips_per_pixel_x,
                            double twips_per_pixel_y) {
  const LayoutScale scale = LayoutScaleFor(twips_per_pixel_x, twips_per_pixel_y);
  const float x = scale.LayoutScaleX;
  const float y = scale.LayoutScaleY;
  if (x == 1.0f && y == 1.0f) return scale;

  if (resizeWindow) {
    window.Width = Twips(window.Width - window.ScaleWidth + window.ScaleWidth * x);
    window.Height = Twips(window.Height - window.ScaleHeight + window.ScaleHeight * y);
  }
  // Each step needs its property; a control without it skips just that step.
  const auto scaled = [](std::optional<double>& value, float factor) {
    if (value) value = Twips(*value * factor);
  };
  for (const auto& item : window.Controls()) {
    Control& control = *item;
    switch (control.Kind()) {
      case ControlKind::kMenuItem:
        break;
      case ControlKind::kLine:
        scaled(control.X1, x);
        scaled(control.X2, x);
        scaled(control.Y1, y);
        scaled(control.Y2, y);
        break;
      case ControlKind::kComboBox:
        ScaleFont(control, y);
        scaled(control.Left, x);
        scaled(control.Top, y);
        scaled(control.Width, x);
        scaled(control.Height, y);
        break;
      default:
        if (!control.Left || !control.Top || !control.Width || !control.Height) {
          ScaleFont(control, y);
          break;
        }
        if (control.ScaleMode == 0) {
          // A user-defined coordinate system survives the move, so what is drawn in it keeps
          // its place.
          const auto left = control.ScaleLeft, top = control.ScaleTop;
          const auto width = control.ScaleWidth, height = control.ScaleHeight;
          control.Move(Twips(*control.Left * x), Twips(*control.Top * y), Twips(*control.Width * x),
                       Twips(*control.Height * y));
          ScaleFont(control, y);
          control.ScaleLeft = left;
          control.ScaleTop = top;
          control.ScaleWidth = width;
          control.ScaleHeight = height;
        } else {
          ScaleFont(control, y);
          control.Move(Twips(*control.Left * x), Twips(*control.Top * y), Twips(*control.Width * x),
                       Twips(*control.Height * y));
        }
        break;
    }
  }
  return scale;
}

}  // namespace wavforge

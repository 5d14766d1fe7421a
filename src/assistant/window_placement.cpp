#include "assistant/window_placement.h"

#include <cstdint>

namespace wavforge {
namespace {

// Halves are whole twips, cut toward zero.
std::int64_t Half(double twips) {
  return static_cast<std::int64_t>(twips) / 2;
}

}  // namespace

WindowBounds HalfAwayFrom(const Form& other, const platform::ScreenRect& work_area,
                          double twips_per_pixel_x, double twips_per_pixel_y) {
  const double left = work_area.left * twips_per_pixel_x;
  const double width = (work_area.right - work_area.left) * twips_per_pixel_x;
  const double top = work_area.top * twips_per_pixel_y;
  const double height = (work_area.bottom - work_area.top) * twips_per_pixel_y;
  const std::int64_t other_centre = static_cast<std::int64_t>(other.Left) + Half(other.Width);
  const std::int64_t centre = static_cast<std::int64_t>(left) + Half(width);
  const auto half = static_cast<double>(Half(width));
  return {other_centre > centre ? left : left + half, top, half, height};
}

const Form* WindowToStandBeside(const OpenForms& forms, const Form& self) {
  for (const Form* form : forms.InLoadOrder()) {
    if (form != &self && form->Enabled && form->Visible) return form;
  }
  return nullptr;
}

}  // namespace wavforge

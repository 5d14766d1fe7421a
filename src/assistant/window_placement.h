#pragma once

#include <optional>

#include "platform/user_interface.h"
#include "ui/form.h"
#include "ui/open_forms.h"

namespace wavforge {

// Where a window goes on the screen, in twips.
struct WindowBounds {
  double left = 0, top = 0, width = 0, height = 0;
  bool operator==(const WindowBounds&) const = default;
};

// The half of the work area (pixels, turned into twips with the screen's twips per pixel)
// away from the other window, at the work area's full height: the left half when the other
// window's centre lies right of the work area's centre, else the right half.
WindowBounds HalfAwayFrom(const Form& other, const platform::ScreenRect& work_area,
                          double twips_per_pixel_x, double twips_per_pixel_y);

// The first open window other than self that is enabled and visible; nullptr for none.
const Form* WindowToStandBeside(const OpenForms& forms, const Form& self);

}  // namespace wavforge

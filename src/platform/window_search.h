#pragma once

#include <span>

namespace platform {

// Whether a top-level window with a given title exists right now. On Linux a window is a
// console title that a running job script has set, or, in the desktop program, a real window of
// the display; a process is not a window.
class WindowSearch {
 public:
  virtual ~WindowSearch() = default;
  // True when a window's whole title is one of titles, letter case ignored. Asking for all
  // titles at once lets a search look at each window only once.
  virtual bool AnyWindowTitled(std::span<const char* const> titles) = 0;
};

}  // namespace platform

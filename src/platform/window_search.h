#pragma once

#include <span>
#include <utility>
#include <vector>

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

// Several searches as one: a window that any of them finds counts. Null entries are skipped.
class AnyWindowSearch final : public WindowSearch {
 public:
  explicit AnyWindowSearch(std::vector<WindowSearch*> searches) : searches_(std::move(searches)) {}
  bool AnyWindowTitled(std::span<const char* const> titles) override {
    for (WindowSearch* search : searches_) {
      if (search && search->AnyWindowTitled(titles)) return true;
    }
    return false;
  }

 private:
  std::vector<WindowSearch*> searches_;
};

}  // namespace platform

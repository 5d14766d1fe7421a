#pragma once

#include <cstdint>

#include "platform/user_interface.h"

namespace wavforge {

// Busy-pointer guard: shows the hourglass from its creation until it goes, then puts back the
// pointer the screen had before.
class clsMousePointer {
 public:
  explicit clsMousePointer(platform::UserInterface& ui);
  ~clsMousePointer();
  clsMousePointer(const clsMousePointer&) = delete;
  clsMousePointer& operator=(const clsMousePointer&) = delete;

  // Shows another pointer while the guard lives; the saved one still comes back at the end.
  void SetMousePointer(int SubstitutePointer = platform::kHourglassPointer);

 private:
  platform::UserInterface& ui_;
  std::int16_t saved_pointer_;
};

}  // namespace wavforge

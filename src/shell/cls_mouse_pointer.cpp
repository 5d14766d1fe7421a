#include "shell/cls_mouse_pointer.h"

namespace wavforge {

clsMousePointer::clsMousePointer(platform::UserInterface& ui)
    : ui_(ui), saved_pointer_(static_cast<std::int16_t>(ui.MousePointer())) {
  ui_.SetMousePointer(platform::kHourglassPointer);
}

clsMousePointer::~clsMousePointer() {
  ui_.SetMousePointer(saved_pointer_);
}

void clsMousePointer::SetMousePointer(int SubstitutePointer) {
  ui_.SetMousePointer(SubstitutePointer);
}

}  // namespace wavforge

#pragma once

#include <QKeyEvent>

namespace wavforge::qt {

// The classic key code of a key press (F1 is 112, "A" is 65, ...), or 0 for a key that has
// none.
int ClassicKeyCode(const QKeyEvent& event);

// The classic shift bits: 1 Shift, 2 Ctrl, 4 Alt.
int ClassicShiftState(Qt::KeyboardModifiers modifiers);

}  // namespace wavforge::qt

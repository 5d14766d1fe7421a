#pragma once

#include <QApplication>
#include <memory>

namespace wavforge::qt {

// The application object of the desktop program, without the toolkit's own scaling for dense
// screens: one pixel of a form is one pixel of the screen, and ready for Qt WebEngine. The
// widget tests make theirs the same way, so that they see the screen as the program does.
std::unique_ptr<QApplication> MakeApplication(int& argc, char** argv);

}  // namespace wavforge::qt

#pragma once

#include <QApplication>
#include <memory>

namespace wavforge::qt {

// The application object of the desktop program, made the same way for its widget tests so
// that they see the screen as the program does.
std::unique_ptr<QApplication> MakeApplication(int& argc, char** argv);

}  // namespace wavforge::qt

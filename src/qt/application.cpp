#include "qt/application.h"

namespace wavforge::qt {

std::unique_ptr<QApplication> MakeApplication(int& argc, char** argv) {
  // The forms scale themselves to the screen's dots per inch; the toolkit only adds whole
  // multiples for screens of twice the density and more.
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::Round);
  return std::make_unique<QApplication>(argc, argv);
}

}  // namespace wavforge::qt

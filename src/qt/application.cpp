#include "qt/application.h"

#include <unistd.h>

#include <QByteArray>
#include <QQuickWindow>
#include <cstdlib>
#include <optional>

namespace wavforge::qt {
namespace {

// An environment switch the toolkit reads while the application object is made; the programs
// started later (the job, the browser's own processes) get it back as it was.
class SwitchWhileMaking {
 public:
  SwitchWhileMaking(const char* name, const char* value)
      : name_(name), was_set_(qEnvironmentVariableIsSet(name)), before_(qgetenv(name)) {
    qputenv(name, value);
  }
  ~SwitchWhileMaking() {
    if (was_set_) {
      qputenv(name_, before_);
    } else {
      qunsetenv(name_);
    }
  }
  SwitchWhileMaking(const SwitchWhileMaking&) = delete;
  SwitchWhileMaking& operator=(const SwitchWhileMaking&) = delete;

 private:
  const char* name_;
  bool was_set_;
  QByteArray before_;
};

}  // namespace

std::unique_ptr<QApplication> MakeApplication(int& argc, char** argv) {
  // The forms scale themselves by the screen's dots per inch so that a window has the same
  // size in screen pixels everywhere; the toolkit must not scale them again.
  const SwitchWhileMaking no_scaling("QT_ENABLE_HIGHDPI_SCALING", "0");
  // Qt WebEngine makes an OpenGL context shared with the toolkit's as the application object is
  // made. On an X display that loads the OpenGL driver (with Mesa: LLVM, some 50 MB and up to
  // 100 ms) before the main window shows, for a browser of help pages that draws as well in
  // software. Unless told otherwise, the program uses no OpenGL.
  std::optional<SwitchWhileMaking> no_opengl;
  if (!qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION")) {
    no_opengl.emplace("QT_XCB_GL_INTEGRATION", "none");
  }
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
  // Chromium refuses to run as root inside its sandbox; whoever set the switch decides.
  if (geteuid() == 0) setenv("QTWEBENGINE_DISABLE_SANDBOX", "1", 0);
  return std::make_unique<QApplication>(argc, argv);
}

}  // namespace wavforge::qt

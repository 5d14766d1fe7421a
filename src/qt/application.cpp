#include "qt/application.h"

#include <unistd.h>

#include <QByteArray>
#include <cstdlib>

namespace wavforge::qt {

std::unique_ptr<QApplication> MakeApplication(int& argc, char** argv) {
  // The forms scale themselves by the screen's dots per inch so that a window has the same
  // size in screen pixels everywhere; the toolkit must not scale them again. It reads the
  // switch once, here; the programs started later (the job, the browser) get it back as it was.
  constexpr char kToolkitScaling[] = "QT_ENABLE_HIGHDPI_SCALING";
  const bool was_set = qEnvironmentVariableIsSet(kToolkitScaling);
  const QByteArray before = qgetenv(kToolkitScaling);
  qputenv(kToolkitScaling, "0");
  // Qt WebEngine shares its contexts with the toolkit's, which must be said before the object
  // exists. Chromium refuses to run as root inside its sandbox; whoever set the switch decides.
  QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
  if (geteuid() == 0) setenv("QTWEBENGINE_DISABLE_SANDBOX", "1", 0);
  auto app = std::make_unique<QApplication>(argc, argv);
  if (was_set) {
    qputenv(kToolkitScaling, before);
  } else {
    qunsetenv(kToolkitScaling);
  }
  return app;
}

}  // namespace wavforge::qt

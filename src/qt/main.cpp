#include <QApplication>
#include <QWebEngineProfile>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/posix/posix_platform.h"
#include "platform/posix/x11_window_search.h"
#include "qt/application.h"
#include "qt/assistant_window_holder.h"
#include "qt/form_window.h"
#include "qt/qt_user_interface.h"
#include "qt/screen_fonts.h"
#include "qt/single_instance.h"
#include "qt/startup_probe.h"
#include "settings/product.h"
#include "shell/file_list.h"
#include "shell/frm_main.h"
#include "shell/program_objects.h"

namespace {

// How long a second start waits for the first to answer before it ends anyway.
constexpr int kActivationTimeoutMs = 2000;

}  // namespace

int main(int argc, char** argv) {
  const auto probe = wavforge::qt::StartupProbe::FromEnvironment();
  const auto app = wavforge::qt::MakeApplication(argc, argv);
  QApplication::setApplicationName(QStringLiteral("wavforge"));
  // What the toolkit left of the arguments are the files, as bytes. The job script runs in the
  // program folder, so a relative name of an existing file is made absolute here.
  // "-update" is how the program restarts itself with administrator rights for an update: the
  // new instance checks again, now with the rights the update script needs.
  const bool update_asked = argc > 1 && std::string_view(argv[1]) == "-update";
  std::vector<std::string> arguments;
  for (int i = update_asked ? 2 : 1; i < argc; ++i) {
    const std::filesystem::path name(argv[i]);
    std::error_code error;
    if (name.is_relative() && std::filesystem::exists(name, error)) {
      arguments.push_back(std::filesystem::absolute(name, error).string());
    } else {
      arguments.push_back(argv[i]);
    }
  }

  wavforge::qt::SingleInstance instance(wavforge::qt::SingleInstance::RuntimeFolder());
  if (!instance.BecomeFirst()) {
    instance.AskFirstToActivate(kActivationTimeoutMs);
    return 0;
  }

  wavforge::qt::AddFontSubstitutes();
  // The desktop program also sees the display's real windows. Through a connection of its own
  // from $DISPLAY, not the toolkit's: on Wayland the toolkit has none, yet XWayland's windows
  // are windows, and the searches never touch the toolkit's event queue.
  platform::posix::X11WindowSearch display_windows;
  // The browser engine starts only when something reads its agent, not with every start.
  platform::posix::PosixPlatform system(
      wavforge::kProductName,
      [] { return QWebEngineProfile::defaultProfile()->httpUserAgent().toStdString(); },
      &display_windows);
  wavforge::qt::QtUserInterface ui;
  wavforge::ProgramObjects program(system.ports(), ui);
  // Made on first use; it goes before the program objects it refers to.
  wavforge::qt::AssistantWindowHolder assistant(system.ports(), ui, program);
  wavforge::frmMain form(system.ports(), ui, program, wavforge::JoinCommandLine(arguments));
  form.SetAssistant(&assistant);
  wavforge::qt::FormWindow window(form, ui);
  ui.SetOwner(&window);
  instance.OnActivationRequest([&window] { window.Activate(); });
  // Once the window is on the screen: the browser engine a check starts costs the start nothing.
  window.OnFirstPaint([&probe, &assistant, update_asked] {
    if (probe) probe->Report();
    assistant.CheckForUpdatesAtStart(update_asked);
  });

  window.LoadForm();
  if (!form.Visible) return 0;
  return QApplication::exec();
}

#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "fakes/fake_processes.h"
#include "fakes/fake_window_search.h"
#include "platform/posix/console_title_search.h"
#include "platform/posix/ini_profile_reader.h"
#include "platform/posix/posix_binary_file.h"
#include "platform/posix/posix_environment.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/registry_paths.h"
#include "platform/posix/sqlite_registry.h"
#include "platform/posix/system_clock.h"
#include "qt/assistant_window_holder.h"
#include "qt/form_window.h"
#include "qt/qt_user_interface.h"
#include "settings/product.h"
#include "shell/frm_main.h"
#include "shell/program_objects.h"
#include "support/isolated_home.h"

namespace wavforge::qt {

// The Qt services with every beep counted on the way through.
class CountingUserInterface final : public platform::UserInterface {
 public:
  explicit CountingUserInterface(QtUserInterface& real) : real_(real) {}
  int beeps = 0;

  void MessageBox(const std::string& text, int style, const std::string& title) override {
    real_.MessageBox(text, style, title);
  }
  bool AskYesNo(const std::string& text, int style, const std::string& title) override {
    return real_.AskYesNo(text, style, title);
  }
  void Beep() override {
    ++beeps;
    real_.Beep();
  }
  int MousePointer() const override { return real_.MousePointer(); }
  void SetMousePointer(int code) override { real_.SetMousePointer(code); }
  bool GetOpenFileName(const platform::OpenFileRequest& request, std::string& answer) override {
    return real_.GetOpenFileName(request, answer);
  }
  double TwipsPerPixelX() const override { return real_.TwipsPerPixelX(); }
  double TwipsPerPixelY() const override { return real_.TwipsPerPixelY(); }
  platform::ScreenRect WorkArea() const override { return real_.WorkArea(); }
  std::string ForegroundWindowName() const override { return real_.ForegroundWindowName(); }

 private:
  QtUserInterface& real_;
};

// The desktop program's main window on real widgets and the real Linux services, in a private
// home whose program folder is the build's. Scripts are not started, and which windows exist
// is a test's choice unless it asks for the real console titles.
class DesktopWindowTest : public testing_support::IsolatedHomeTest {
 protected:
  void TearDown() override {
    assistant.reset();
    window.reset();
    form.reset();
    program.reset();
    ports.reset();
    registry.reset();
    IsolatedHomeTest::TearDown();
  }

  // Settings lines for the per-user file, written before the window opens.
  void WriteSettings(const std::string& language, const std::string& options = "") {
    testing_support::WriteFile(
        ConfigHome() / "Larkspur" / "Larkspur.ini",
        "[General]\nLogToFile=0\nLanguage=" + language + "\n[Options]\n" + "Encoder=1\n" + options);
  }

  FormWindow& Open(const std::string& command_line = "", bool real_windows = false) {
    const auto paths = platform::posix::DefaultRegistryPaths(kProductName);
    registry = std::make_unique<platform::posix::SqliteRegistry>(paths.user_store,
                                                                 paths.machine_store, nullptr);
    platform::WindowSearch& windows = real_windows
                                          ? static_cast<platform::WindowSearch&>(console_titles)
                                          : static_cast<platform::WindowSearch&>(fake_windows);
    environment = std::make_unique<platform::posix::PosixEnvironment>(program_folder);
    ports = std::make_unique<platform::Ports>(platform::Ports{
        *environment, files, profiles, *registry, clock, binary_files, processes, windows});
    program = std::make_unique<ProgramObjects>(*ports, ui);
    form = std::make_unique<frmMain>(*ports, ui, *program, command_line);
    assistant = std::make_unique<AssistantWindowHolder>(*ports, ui, *program);
    form->SetAssistant(assistant.get());
    window = std::make_unique<FormWindow>(*form, ui);
    qt_ui.SetOwner(window.get());
    window->LoadForm();
    QApplication::processEvents();
    return *window;
  }

  // A program folder of the test's own with the build's data, whose English language file has
  // the given "key=" lines in place of the build's.
  void UseProgramFolder(const std::vector<std::string>& lines) {
    const std::filesystem::path built = WAVFORGE_PROGRAM_DIR;
    const std::filesystem::path folder = Root() / "program";
    std::filesystem::create_directories(folder);
    for (const char* name : {"HTML0", "Larkspur.nav", "LarkspurFix.ini", "Larkspur.ini"}) {
      std::filesystem::create_symlink(built / name, folder / name);
    }
    std::ifstream in(built / "English.lang");
    std::string language;
    for (std::string line; std::getline(in, line);) {
      for (const std::string& replacement : lines) {
        if (line.rfind(replacement.substr(0, replacement.find('=') + 1), 0) == 0)
          line = replacement;
      }
      language += line + "\n";
    }
    testing_support::WriteFile(folder / "English.lang", language);
    program_folder = folder.string();
  }

  QWidget* Widget(const char* name, int index = -1) {
    QWidget* widget = window->WidgetOf(name, index);
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  void Tick() {
    // The same handler the window's 250 ms timer runs, without waiting for it.
    QMetaObject::invokeMethod(window->TimerOf("tmrStillWorking"), "timeout", Qt::DirectConnection);
  }

  // The folder the program's data files are read from.
  std::string program_folder = WAVFORGE_PROGRAM_DIR;
  std::unique_ptr<platform::posix::PosixEnvironment> environment;
  platform::posix::PosixFileSystem files;
  platform::posix::IniProfileReader profiles;
  std::unique_ptr<platform::posix::SqliteRegistry> registry;
  platform::posix::SystemClock clock;
  platform::posix::PosixBinaryFileOpener binary_files;
  fakes::FakeProcesses processes;
  fakes::FakeWindowSearch fake_windows;
  platform::posix::ConsoleTitleSearch console_titles;
  std::unique_ptr<platform::Ports> ports;
  QtUserInterface qt_ui;
  CountingUserInterface ui{qt_ui};
  std::unique_ptr<ProgramObjects> program;
  std::unique_ptr<frmMain> form;
  std::unique_ptr<FormWindow> window;
  std::unique_ptr<AssistantWindowHolder> assistant;
};

}  // namespace wavforge::qt

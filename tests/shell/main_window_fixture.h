#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/fake_ports.h"
#include "fakes/fake_user_interface.h"
#include "shell/frm_main.h"

namespace wavforge::testing_main {

inline constexpr const char* kSettingsFile = "/home/u/.config/Larkspur/Larkspur.ini";
inline constexpr const char* kLanguageFile = "/opt/wavforge/English.lang";

// The assistant window as a record of what the main window asked of it.
class RecordingAssistant final : public AssistantWindow {
 public:
  std::vector<HelpPageRequest> pages;
  int unloads = 0;
  std::function<void()> while_opening;

  void SetUrl(const std::string& Url, bool Online) override {
    pages.push_back({Url, Online});
    if (while_opening) while_opening();
  }
  void UnloadIfLoaded() override { ++unloads; }
};

// The main window on fakes: settings, fix and language file in memory, a temporary folder
// /tmp/t, a common data folder /srv/common.
class MainWindowTest : public ::testing::Test, protected fakes::FakePorts {
 protected:
  MainWindowTest() {
    environment.folders = {{13, "/home/u/Music"}, {26, "/home/u/.config"}, {35, "/srv/common"}};
    environment.variables = {{"TEMP", "/tmp/t"}, {"PATH", "/usr/bin:/bin"}};
    for (const char* folder : {"/home", "/home/u", "/home/u/Music", "/home/u/.config",
                               "/home/u/.config/Larkspur", "/tmp", "/tmp/t"}) {
      files.AddFolder(folder);
    }
    profiles.SetFile("/opt/wavforge/LarkspurFix.ini",
                     "[Encode]\nMP3=lame %5 \"%1.wav\" \"%2.mp3\"\\r\\n\n[EncParams]\nMP3=-V 2\n");
    SetSettings("English", "DelTemp=1\nEncoder=1\nMP3Quality=0\n");
    profiles.SetFile(kLanguageFile,
                     "27100=Encoder window\n"
                     "27110=Choose files|Pick the recordings\n"
                     "5050=Remove sources|Delete each recording once encoded\n"
                     "27900=Wave files%1*.wav%1All files%1*%1\n"
                     "27910=Choose recordings\n"
                     "homepage=https://home.test/\n"
                     "email=mailto:team@home.test\n"
                     "908=Cannot start in %1: %2 %3\n");
  }

  void SetSettings(const std::string& language, const std::string& options) {
    profiles.SetFile(kSettingsFile, "[General]\nLanguage=" + language + "\n[Options]\n" + options);
  }

  frmMain& Window(const std::string& command_line = "") {
    window = std::make_unique<frmMain>(ports, ui, program, command_line);
    window->SetAssistant(&assistant);
    return *window;
  }
  frmMain& Loaded(const std::string& command_line = "") {
    Window(command_line).Load();
    return *window;
  }
  Control& Get(const char* name, int index = -1) {
    Control* control = window->Find(name, index);
    EXPECT_NE(control, nullptr) << name;
    return *control;
  }
  void Tick() { window->Timer(Get("tmrStillWorking")); }

  fakes::FakeUserInterface ui;
  ProgramObjects program{ports, ui};
  RecordingAssistant assistant;
  std::unique_ptr<frmMain> window;
};

}  // namespace wavforge::testing_main

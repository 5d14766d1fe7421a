#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "fakes/fake_ports.h"
#include "fakes/fake_user_interface.h"
#include "shell/frm_main.h"

namespace wavforge::testing_main {

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

// The main window on fakes: the settings file in memory (language English, read from
// kLanguageFile when a test puts one there), a temporary folder /tmp/t, a common data folder
// /srv/common. What the real window shows is tested on its widgets.
class MainWindowTest : public ::testing::Test, protected fakes::FakePorts {
 protected:
  MainWindowTest() {
    environment.folders = {{26, "/home/u/.config"}, {35, "/srv/common"}};
    environment.variables = {{"TEMP", "/tmp/t"}, {"PATH", "/usr/bin"}};
    files.AddFolder("/tmp/t");
  }

  void Loaded(const std::string& options = "") {
    profiles.SetFile("/home/u/.config/Larkspur/Larkspur.ini",
                     "[General]\nLanguage=English\n[Options]\n" + options);
    window = std::make_unique<frmMain>(ports, ui, program, "");
    window->SetAssistant(&assistant);
    window->Load();
  }
  Control& Get(const char* name) { return *window->Find(name); }

  fakes::FakeUserInterface ui;
  ProgramObjects program{ports, ui};
  RecordingAssistant assistant;
  std::unique_ptr<frmMain> window;
};

}  // namespace wavforge::testing_main

#pragma once

#include "platform/ports.h"
#include "platform/user_interface.h"
#include "settings/load_settings.h"
#include "settings/settings.h"
#include "shell/file_list.h"
#include "ui/language_object.h"
#include "ui/open_forms.h"

namespace wavforge {

// What lives as long as the program and every window shares: the settings and their loader,
// the selected files, the language object and the list of loaded windows. A front end makes
// one and hands it down.
struct ProgramObjects {
  ProgramObjects(const platform::Ports& ports, platform::UserInterface& ui)
      : loader(ports), language(settings, ports, ui) {}
  ProgramObjects(const ProgramObjects&) = delete;
  ProgramObjects& operator=(const ProgramObjects&) = delete;

  Settings settings;
  SettingsLoader loader;
  FileList file_list;
  LanguageObject language;
  // The loaded windows, in load order.
  OpenForms forms;
};

}  // namespace wavforge

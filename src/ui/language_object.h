#pragma once

#include <optional>

#include "platform/ports.h"
#include "platform/user_interface.h"
#include "settings/settings.h"
#include "ui/localize_controls.h"

namespace wavforge {

// Holds the one language object, made on first use from the Language setting of that moment
// and kept for the life of the program: a changed setting counts from the next start.
class LanguageObject {
 public:
  LanguageObject(const Settings& settings, const platform::Ports& ports,
                 platform::UserInterface& ui)
      : settings_(settings), ports_(ports), ui_(ui) {}

  const clsLocalizeControls& Get() {
    if (!language_) {
      language_.emplace(settings_.Language, ports_.environment, ports_.profiles, ui_);
    }
    return *language_;
  }

 private:
  const Settings& settings_;
  const platform::Ports& ports_;
  platform::UserInterface& ui_;
  std::optional<clsLocalizeControls> language_;
};

}  // namespace wavforge

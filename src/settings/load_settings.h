#pragma once

#include <functional>

#include "platform/ports.h"
#include "settings/settings.h"

namespace wavforge {

// Fills Settings from the fix file and the settings file, with defaults for whatever is
// missing. Runs at start-up and again at the start of every job, so edits between jobs count.
class SettingsLoader {
 public:
  // Told the DelTemp value read on the first run, so the main window's box can show it.
  using DelTempShown = std::function<void(bool)>;

  explicit SettingsLoader(const platform::Ports& ports) : ports_(ports) {}

  void LoadSettings(Settings& settings, const DelTempShown& show_del_temp = {});

 private:
  const platform::Ports& ports_;
  bool first_run_done_ = false;
};

}  // namespace wavforge

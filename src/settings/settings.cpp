#include "settings/settings.h"

namespace wavforge {

Settings::Settings() {
  for (int i = 0; i < kFormatCount; ++i) Profiles[i].format_name = kFormatNames[i];
}

}  // namespace wavforge

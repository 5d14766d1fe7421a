#include "shell/help_pages.h"

#include "ui/form.h"

namespace wavforge {

std::optional<HelpPageRequest> HelpPageForKey(int key, int shift, const std::string& tag) {
  const bool alt = (shift & kAltMask) != 0;
  switch (key) {
    case kKeyF1:
      return HelpPageRequest{tag + ".htm", !alt};
    case kKeyF2:
      return HelpPageRequest{"wizard.htm", !alt};
    case kKeyF3:
      return HelpPageRequest{"search.htm", true};
    case kKeyF12:
      return HelpPageRequest{tag + ".htm", true};
    default:
      return std::nullopt;
  }
}

}  // namespace wavforge

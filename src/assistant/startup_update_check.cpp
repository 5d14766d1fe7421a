#include "assistant/startup_update_check.h"

#include <cctype>

#include "assistant/update_check.h"
#include "settings/registry_access.h"

namespace wavforge {
namespace {

// "YYYY-MM-DD hh:mm:ss", the only form that compares as text in time order.
bool IsDateTimeText(const std::string& text) {
  constexpr std::string_view kPattern = "0000-00-00 00:00:00";
  if (text.size() != kPattern.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool digit = std::isdigit(static_cast<unsigned char>(text[i])) != 0;
    if (kPattern[i] == '0' ? !digit : text[i] != kPattern[i]) return false;
  }
  return true;
}

bool CheckIsDue(const platform::Ports& ports) {
  const RegistryData next = RegRead(ports.registry, platform::RegistryRoot::kCurrentUser,
                                    ProgramKeyPath("Flags"), "NextUpdateCheck", std::string());
  const std::string* text = std::get_if<std::string>(&next);
  // A value nobody could have stored is as good as none.
  if (!text || !IsDateTimeText(*text)) return true;
  return *text <= DateTimeText(ports.clock.Now(), 0);
}

}  // namespace

std::string StartupUpdateAddress(bool asked, bool automatic, const platform::Ports& ports,
                                 const clsLocalizeControls& language) {
  if (!asked && !(automatic && CheckIsDue(ports))) return "";
  return language.FormatMsg("updateurl");
}

}  // namespace wavforge

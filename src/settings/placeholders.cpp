#include "settings/placeholders.h"

#include <cstdio>
#include <string>
#include <variant>

#include "platform/path_rules.h"
#include "settings/environment_strings.h"
#include "settings/path_tools.h"
#include "settings/registry_access.h"
#include "settings/system_info.h"
#include "settings/text_replace.h"

namespace wavforge {
namespace {

// The buffer the environment step works in; longer texts are cut to fit it.
constexpr std::size_t kExpansionBuffer = 32767;

std::string TwoDigits(int value) {
  char text[8];
  std::snprintf(text, sizeof text, "%02d", value % 100);
  return text;
}

std::string DateText(const platform::LocalTime& t) {
  char text[16];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d", t.year, t.month, t.day);
  return text;
}

std::string TimeText(const platform::LocalTime& t) {
  char text[16];
  std::snprintf(text, sizeof text, "%02d:%02d:%02d", t.hour, t.minute, t.second);
  return text;
}

std::string AsText(const RegistryData& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  return std::to_string(std::get<std::int32_t>(value));
}

std::string TrimSpaces(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

// Keeps the first character, then turns each pair of separators into one, so a leading pair
// (a network path) survives.
std::string MergeDoubledSeparators(const std::string& text) {
  if (text.empty()) return text;
  const std::string pair(2, platform::kPathSeparator);
  return text.substr(0, 1) + ReplaceAll(std::string_view(text).substr(1), pair,
                                        std::string(1, platform::kPathSeparator));
}

}  // namespace

std::string ExpandPlaceholders(std::string_view input, const platform::Ports& ports) {
  auto& environment = ports.environment;
  const auto& clock = ports.clock;
  const auto folder = [&](int id) { return GetSpecialFolder(environment, 0, id, true, false); };
  const auto replace = [](std::string& text, std::string_view name, const std::string& value) {
    text = ReplaceAllIgnoreCase(text, name, value);
  };

  std::string text = TrimSpaces(input);
  replace(text, "%Temp%",
          AsText(RegRead(ports.registry, platform::RegistryRoot::kCurrentUser, "Environment",
                         "Temp", std::string("%Temp%"))));
  replace(text, "%Tmp%",
          AsText(RegRead(ports.registry, platform::RegistryRoot::kCurrentUser, "Environment", "Tmp",
                         std::string("%Tmp%"))));
  replace(text, "%AppData%", folder(kAppDataFolder));
  replace(text, "%MyDocuments%", folder(kDocumentsFolder));
  replace(text, "%MyMusic%", folder(kMusicFolder));
  replace(text, "%MyPictures%", folder(kPicturesFolder));
  replace(text, "%MyVideo%", folder(kVideosFolder));
  replace(text, "%AppDir%", environment.ProgramFolder());
  // Each date and time part reads the clock itself.
  const platform::LocalTime now = clock.Now();
  replace(text, "%Now%", DateText(now) + " " + TimeText(now));
  replace(text, "%Date%", DateText(clock.Now()));
  replace(text, "%Day%", TwoDigits(clock.Now().day));
  replace(text, "%Month%", TwoDigits(clock.Now().month));
  replace(text, "%Year%", std::to_string(clock.Now().year));
  replace(text, "%Year2%", TwoDigits(clock.Now().year));
  replace(text, "%Time%", TimeText(clock.Now()));
  replace(text, "%Hour%", TwoDigits(clock.Now().hour));
  replace(text, "%Min%", TwoDigits(clock.Now().minute));
  replace(text, "%Sec%", TwoDigits(clock.Now().second));
  replace(text, "%UserProfileName%",
          PathBaseName(environment.GetVariable("UserProfile").value_or("")));

  text = TrimAtNul(text).substr(0, kExpansionBuffer - 1);
  replace(text, "%LF%", "\r\n");
  text = ExpandEnvironmentStrings(text, environment);
  if (text.size() > kExpansionBuffer - 1) text.resize(kExpansionBuffer - 1);
  return MergeDoubledSeparators(text);
}

}  // namespace wavforge

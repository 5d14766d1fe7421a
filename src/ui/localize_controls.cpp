#include "ui/localize_controls.h"

#include "encoding/substitute_args.h"
#include "platform/path_rules.h"
#include "settings/profile_values.h"
#include "settings/text_replace.h"

namespace wavforge {

bool clsLocalizeControls::LessIgnoringCase::operator()(const std::string& a,
                                                       const std::string& b) const {
  return ToLowerAscii(a) < ToLowerAscii(b);
}

clsLocalizeControls::clsLocalizeControls(const std::string& language,
                                         const platform::Environment& environment,
                                         const platform::ProfileReader& profiles,
                                         platform::UserInterface& ui)
    : language_(language) {
  if (language_.empty()) return;
  const std::string file =
      environment.ProgramFolder() + platform::kPathSeparator + language_ + ".lang";
  const auto insert = [&](Table& table, const std::string& key, const std::string& value) {
    if (!table.emplace(key, value).second) {
      ui.MessageBox("Item " + key + " exists twice in language file!", platform::kExclamationIcon,
                    file);
    }
  };
  for (const auto& key : GetProfileKeyNames(profiles, file, "", kLargeProfileBufferCapacity)) {
    if (key.empty()) continue;
    const auto parts =
        SplitList(GetProfileText(profiles, file, "", key, "", kLargeProfileBufferCapacity), '|');
    if (!parts.empty() && !parts[0].empty()) insert(texts_, key, parts[0]);
    if (parts.size() > 1 && !parts[1].empty()) insert(tips_, key, parts[1]);
  }
}

std::string clsLocalizeControls::Text(const std::string& key) const {
  const auto found = texts_.find(key);
  return found == texts_.end() ? std::string() : found->second;
}

std::string clsLocalizeControls::Tip(const std::string& key) const {
  const auto found = tips_.find(key);
  return found == tips_.end() ? std::string() : found->second;
}

std::string clsLocalizeControls::FormatMsg(const std::string& key,
                                           const std::vector<std::string>& arguments) const {
  if (language_.empty()) return {};
  const auto found = texts_.find(key);
  if (found == texts_.end()) return {};
  const std::string text = SubstituteArgs(found->second, arguments);
  return ReplaceAll(ReplaceAll(text, "\\r", "\r"), "\\n", "\n");
}

}  // namespace wavforge

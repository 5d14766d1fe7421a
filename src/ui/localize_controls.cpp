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

std::string clsLocalizeControls::Lookup(const Table& table, const std::string& key) {
  const auto found = table.find(key);
  if (found == table.end()) return {};
  if (found->second.empty() || found->second.front() != ':') return found->second;
  // One level only: what the redirect leads to is used as it is.
  const auto target = table.find(found->second.substr(1));
  return target == table.end() ? std::string() : target->second;
}

void clsLocalizeControls::LocalizeElement(const std::string& key, std::optional<std::string>* text,
                                          std::optional<std::string>* tip) const {
  if (key.empty() || key == "0") return;
  // The tip is set even when empty, so a design-time tip without a translation goes.
  if (tip && tip->has_value()) *tip = Lookup(tips_, key);
  const std::string caption = Lookup(texts_, key);
  if (!caption.empty() && text && text->has_value()) *text = caption;
}

namespace {

// The key of an element: its help-topic number, else its help-context number, else its tip.
std::optional<std::string> KeyOf(const Control& control) {
  if (control.WhatsThisHelpID) return std::to_string(*control.WhatsThisHelpID);
  if (control.HelpContextID) return std::to_string(*control.HelpContextID);
  if (control.ToolTipText) return *control.ToolTipText;
  return std::nullopt;
}

}  // namespace

void clsLocalizeControls::LocalizeControls(Form& caller) const {
  if (language_.empty()) return;
  if (caller.HelpContextID) {
    std::optional<std::string> caption = caller.Caption;
    LocalizeElement(std::to_string(*caller.HelpContextID), &caption, nullptr);
    caller.Caption = *caption;
  }
  for (const auto& control : caller.Controls()) {
    if (control->Kind() == ControlKind::kTabStrip) {
      for (Tab& tab : control->Tabs) {
        std::optional<std::string> caption = tab.Caption;
        std::optional<std::string> tip = tab.ToolTipText;
        LocalizeElement(tab.ToolTipText, &caption, &tip);
        tab.Caption = *caption;
        tab.ToolTipText = *tip;
      }
      continue;
    }
    if (control->Kind() == ControlKind::kComboBox) {
      for (std::string& entry : control->List) {
        if (const auto found = texts_.find(entry); found != texts_.end()) entry = found->second;
      }
    }
    const auto key = KeyOf(*control);
    if (!key) continue;
    auto* text = control->Kind() == ControlKind::kTextBox ? &control->Text : &control->Caption;
    LocalizeElement(*key, text, &control->ToolTipText);
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

#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/environment.h"
#include "platform/profile_reader.h"
#include "platform/user_interface.h"
#include "ui/form.h"

namespace wavforge {

// The language object: every visible text of the program by key, loaded once from
// "<Language>.lang" in the program folder.
class clsLocalizeControls {
 public:
  // Loads at creation. A key written twice is reported in a message box and the first entry
  // stays. An empty language name loads nothing.
  clsLocalizeControls(const std::string& language, const platform::Environment& environment,
                      const platform::ProfileReader& profiles, platform::UserInterface& ui);

  // Replaces the texts of the window and of every control that carries a key: captions or
  // text-box contents, tooltips, combo-box entries and tabs. Changes nothing without a language.
  void LocalizeControls(Form& caller) const;

  // The text of a key with "%1", "%2", ... replaced by the arguments and the escapes "\r" and
  // "\n" turned into line breaks; "" for a missing key or when no language is set.
  std::string FormatMsg(const std::string& key,
                        const std::vector<std::string>& arguments = {}) const;

  bool HasLanguage() const { return !language_.empty(); }
  // Lookups for the window walk; "" when missing.
  std::string Text(const std::string& key) const;
  std::string Tip(const std::string& key) const;

 private:
  // Keys compare ignoring letter case.
  struct LessIgnoringCase {
    bool operator()(const std::string& a, const std::string& b) const;
  };
  using Table = std::map<std::string, std::string, LessIgnoringCase>;

  // Text or tip of a control's key; a value starting with ":" names the key to use instead.
  static std::string Lookup(const Table& table, const std::string& key);
  void LocalizeElement(const std::string& key, std::optional<std::string>* text,
                       std::optional<std::string>* tip) const;

  std::string language_;
  Table texts_;
  Table tips_;
};

}  // namespace wavforge

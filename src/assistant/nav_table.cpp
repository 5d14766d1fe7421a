#include "assistant/nav_table.h"

#include "settings/text_replace.h"

namespace wavforge {
namespace {

int FindEntry(const NavTable& table, std::string_view text, std::string NavEntry::*field) {
  const std::string wanted = ToLowerAscii(text);
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (ToLowerAscii(table[i].*field) == wanted) return static_cast<int>(i) + 1;
  }
  return 0;
}

}  // namespace

NavTable ReadLocalNav(const platform::ProfileReader& profiles, const std::string& file) {
  NavTable table;
  for (const std::string& section : profiles.SectionNames(file)) {
    for (const std::string& key : profiles.KeyNames(file, section)) {
      if (key.empty()) continue;
      table.push_back({key, profiles.ReadValue(file, section, key).value_or("")});
    }
  }
  return table;
}

void ReadOnlineNav(std::string_view text, NavTable& table) {
  NavTable read;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    const std::size_t equals = line.find('=');
    if (line.empty() || equals == std::string_view::npos ||
        line.find('=', equals + 1) != std::string_view::npos) {
      continue;
    }
    read.push_back({std::string(line.substr(0, equals)), std::string(line.substr(equals + 1))});
  }
  if (!read.empty()) table = std::move(read);
}

int FindNavKey(const NavTable& table, std::string_view key) {
  return FindEntry(table, key, &NavEntry::Key);
}

int FindNavPage(const NavTable& table, std::string_view page) {
  return FindEntry(table, page, &NavEntry::Page);
}

}  // namespace wavforge

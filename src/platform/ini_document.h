#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// The sections and entries of one profile (INI) file, in file order. Texts are bytes: UTF-8 or
// any 8-bit code page passes through unchanged; only ASCII letters fold for name matching.
//
// Reading rules:
// - LF or CR LF ends a line; a UTF-8 byte order mark at the very start is skipped.
// - "[name]" after optional blanks starts a section; whatever follows the first "]" is ignored.
//   Entries before the first header, and under "[]", belong to the section with the empty name.
//   A line that opens with "[" but holds no "]" is no header and is read like any other line.
// - "key=value" is an entry, split at the first "="; blanks (space, tab) around both go, then a
//   value enclosed in a matching pair of double or single quotes loses them.
// - A line whose first non-blank character is ";" is a comment, so shipped files can explain
//   themselves without their remarks turning into keys (a language file would otherwise warn
//   about two identical remarks as a key written twice).
// - A line without "=" outside a header, and an entry with an empty key, are not entries: no
//   lookup could ever return a value for them, and listing them would hand the language and
//   navigation tables names that lead nowhere.
// - A section that occurs twice is one section at the place of its first occurrence. A key
//   written twice is listed twice; the first value wins for lookups.
class IniDocument {
 public:
  static IniDocument Parse(std::string_view bytes);

  // The first value of that key in that section; nothing when either is missing.
  std::optional<std::string> Value(std::string_view section, std::string_view key) const;

  // Names of the named sections in file order, each once, spelled as first written. The
  // section with the empty name is not listed: the NUL-separated lists the program reads
  // cannot carry an empty name (it would read as the end of the list).
  std::vector<std::string> SectionNames() const;

  // Key names of one section in file order, spelled as written; duplicates stay.
  std::vector<std::string> KeyNames(std::string_view section) const;

 private:
  struct Entry {
    std::string key;
    std::string value;
  };
  struct Section {
    std::string name;
    std::vector<Entry> entries;
  };

  std::optional<std::size_t> IndexOf(std::string_view name) const;
  std::size_t IndexOfOrAdd(std::string_view name);

  std::vector<Section> sections_;
};

// True when both texts are equal once ASCII letters are folded to one case.
bool EqualsIgnoringAsciiCase(std::string_view a, std::string_view b);

}  // namespace platform

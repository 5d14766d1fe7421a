#pragma once

#include <optional>
#include <string>
#include <vector>

namespace platform {

// Reads INI-style profile files the way the Windows profile API does. Section and key names
// match ignoring ASCII letter case; blanks around names and values are dropped; a value in a
// pair of double or single quotes comes back without them. Entries before the first header (or
// under "[]") belong to the section with the empty name. Lines starting with ";" are comments.
// A missing or unreadable file reads as an empty one. The rules in full: platform/ini_document.h.
class ProfileReader {
 public:
  virtual ~ProfileReader() = default;

  // The value of the first entry of that key in that section, or nothing when the file,
  // section or key does not exist.
  virtual std::optional<std::string> ReadValue(const std::string& file, const std::string& section,
                                               const std::string& key) const = 0;
  // Names of the named sections in file order, each once (a section written twice counts at
  // its first place). The section with the empty name is reachable by name but not listed.
  virtual std::vector<std::string> SectionNames(const std::string& file) const = 0;
  // Key names of a section in file order; a key written twice is listed twice.
  virtual std::vector<std::string> KeyNames(const std::string& file,
                                            const std::string& section) const = 0;
};

}  // namespace platform

#pragma once

#include "platform/profile_reader.h"

namespace platform::posix {

// Reads the file anew on every call: the program asks each file only a few questions, and the
// user may edit a file between two of them. A missing or unreadable file reads as empty.
class IniProfileReader final : public ProfileReader {
 public:
  std::optional<std::string> ReadValue(const std::string& file, const std::string& section,
                                       const std::string& key) const override;
  std::vector<std::string> SectionNames(const std::string& file) const override;
  std::vector<std::string> KeyNames(const std::string& file,
                                    const std::string& section) const override;
};

}  // namespace platform::posix

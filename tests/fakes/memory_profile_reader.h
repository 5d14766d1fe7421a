#pragma once

#include <map>
#include <string>

#include "platform/ini_document.h"
#include "platform/profile_reader.h"

namespace fakes {

// Profile files held in memory (path to text), parsed by the same rules as the real reader,
// so core tests can set up files without a disk. A path never set reads as an empty file.
class MemoryProfileReader final : public platform::ProfileReader {
 public:
  void SetFile(const std::string& path, const std::string& text) { files_[path] = text; }

  std::optional<std::string> ReadValue(const std::string& file, const std::string& section,
                                       const std::string& key) const override {
    return Load(file).Value(section, key);
  }
  std::vector<std::string> SectionNames(const std::string& file) const override {
    return Load(file).SectionNames();
  }
  std::vector<std::string> KeyNames(const std::string& file,
                                    const std::string& section) const override {
    return Load(file).KeyNames(section);
  }

 private:
  platform::IniDocument Load(const std::string& path) const {
    const auto found = files_.find(path);
    return platform::IniDocument::Parse(found == files_.end() ? std::string() : found->second);
  }

  std::map<std::string, std::string> files_;
};

}  // namespace fakes

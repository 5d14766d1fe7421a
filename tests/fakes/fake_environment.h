#pragma once

#include <cctype>
#include <map>
#include <string>

#include "platform/environment.h"

namespace fakes {

// Variables, program folder, version word and special folders held in memory.
class FakeEnvironment final : public platform::Environment {
 public:
  std::map<std::string, std::string> variables;
  std::map<int, std::string> folders;
  std::string program_folder = "/opt/wavforge";

  std::optional<std::string> GetVariable(const std::string& name) const override {
    if (auto exact = variables.find(name); exact != variables.end()) return exact->second;
    for (const auto& [key, value] : variables) {
      if (Lower(key) == Lower(name)) return value;
    }
    return std::nullopt;
  }
  void SetVariable(const std::string& name, const std::string& value) override {
    // Like the real one: a variable known under other letters is the one changed.
    if (variables.count(name) == 0) {
      for (auto& [key, stored] : variables) {
        if (Lower(key) == Lower(name)) {
          stored = value;
          return;
        }
      }
    }
    variables[name] = value;
  }
  std::string ProgramFolder() const override { return program_folder; }
  std::uint32_t GetVersion() const override { return 0x0A00; }
  std::string SpecialFolderPath(int folder_id, bool) override {
    const auto found = folders.find(folder_id);
    return found == folders.end() ? std::string() : found->second;
  }

 private:
  static std::string Lower(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
  }
};

}  // namespace fakes

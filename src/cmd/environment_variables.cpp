#include "cmd/environment_variables.h"

#include <cstdlib>

extern char** environ;

namespace wavforge::cmd {

VariableList SnapshotEnvironment() {
  VariableList variables;
  for (char** entry = environ; entry && *entry; ++entry) {
    const std::string_view text(*entry);
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) continue;
    variables.emplace_back(std::string(text.substr(0, equals)),
                           std::string(text.substr(equals + 1)));
  }
  return variables;
}

void SetEnvironmentVariable(const std::string& name, const std::string& value) {
  std::string existing = name;
  for (const auto& [key, ignored] : SnapshotEnvironment()) {
    if (key == name) {
      existing = key;
      break;
    }
    if (existing == name && EqualsIgnoringCase(key, name)) existing = key;
  }
  if (value.empty()) {
    unsetenv(existing.c_str());
  } else {
    setenv(existing.c_str(), value.c_str(), 1);
  }
}

}  // namespace wavforge::cmd

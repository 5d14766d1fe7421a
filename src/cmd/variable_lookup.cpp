#include "cmd/variable_lookup.h"

namespace wavforge::cmd {
namespace {

char LowerAscii(char c) {
  return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (LowerAscii(a[i]) != LowerAscii(b[i])) return false;
  }
  return true;
}

std::optional<std::string> FindVariable(const VariableList& variables, std::string_view name) {
  for (const auto& [key, value] : variables) {
    if (key == name) return value;
  }
  for (const auto& [key, value] : variables) {
    if (EqualsIgnoringCase(key, name)) return value;
  }
  return std::nullopt;
}

}  // namespace wavforge::cmd

#include "cmd/wildcard.h"

namespace wavforge::cmd {
namespace {

// Only ASCII letters: bytes of other characters compare as they are.
bool SameLetter(char a, char b) {
  const auto lower = [](char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
  };
  return lower(a) == lower(b);
}

// Iterative matching with one backtrack point: linear in practice, never exponential.
bool Matches(std::string_view pattern, std::string_view name) {
  std::size_t p = 0;
  std::size_t n = 0;
  std::size_t star = std::string_view::npos;
  std::size_t star_name = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      star_name = n;
    } else if (p < pattern.size() && (pattern[p] == '?' || SameLetter(pattern[p], name[n]))) {
      ++p;
      ++n;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      n = ++star_name;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == '*') ++p;
  return p == pattern.size();
}

}  // namespace

bool HasWildcards(std::string_view name) {
  return name.find_first_of("*?") != std::string_view::npos;
}

bool MatchesWildcard(std::string_view pattern, std::string_view name) {
  if (Matches(pattern, name)) return true;
  return pattern.size() >= 2 && pattern.substr(pattern.size() - 2) == ".*" &&
         Matches(pattern.substr(0, pattern.size() - 2), name);
}

}  // namespace wavforge::cmd

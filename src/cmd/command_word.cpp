#include "cmd/command_word.h"

#include "cmd/variable_lookup.h"

namespace wavforge::cmd {
namespace {

bool EndsWord(char c) {
  switch (c) {
    case ',':
    case ';':
    case '=':
    case '(':
    case '/':
    case '.':
    case ':':
    case '+':
    case '[':
    case ']':
    case '\\':
    case '"':
      return true;
    default:
      return IsBlank(c);
  }
}

}  // namespace

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

std::string_view TrimLeadingBlanks(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && IsBlank(text[i])) ++i;
  return text.substr(i);
}

std::string_view TrimCommandStart(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && (IsBlank(text[i]) || text[i] == '@')) ++i;
  return text.substr(i);
}

CommandWord SplitCommandWord(std::string_view text) {
  std::size_t end = 0;
  while (end < text.size() && !EndsWord(text[end])) ++end;
  return {text.substr(0, end), text.substr(end)};
}

bool IsRemark(std::string_view text) {
  return EqualsIgnoringCase(SplitCommandWord(TrimCommandStart(text)).word, "rem");
}

}  // namespace wavforge::cmd

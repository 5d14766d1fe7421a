#include "cmd/redirection.h"

#include "cmd/command_word.h"

namespace wavforge::cmd {
namespace {

constexpr const char* kSyntaxError = "The syntax of the command is incorrect.";

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
bool EndsFileName(char c) {
  return IsBlank(c) || c == '<' || c == '>' || c == '&' || c == '|';
}

// Reads a redirection's file name from pos; returns the position after it.
std::size_t ReadFileName(std::string_view command, std::size_t pos, std::string& name) {
  while (pos < command.size() && IsBlank(command[pos])) ++pos;
  bool in_quotes = false;
  while (pos < command.size()) {
    const char c = command[pos];
    if (c == '"') {
      in_quotes = !in_quotes;
      ++pos;
    } else if (in_quotes) {
      name += c;
      ++pos;
    } else if (EndsFileName(c)) {
      break;
    } else if (c == '^') {
      if (pos + 1 < command.size()) name += command[pos + 1];
      pos += 2;
    } else {
      name += c;
      ++pos;
    }
  }
  return pos;
}

}  // namespace

ParsedCommand ParseRedirections(std::string_view command) {
  ParsedCommand parsed;
  bool in_quotes = false;
  // Where in text a digit stands that was written bare right before the current character.
  std::size_t bare_digit_at = std::string::npos;
  std::size_t i = 0;
  while (i < command.size()) {
    const char c = command[i];
    const std::size_t digit_before = bare_digit_at;
    bare_digit_at = std::string::npos;
    if (c == '"') {
      in_quotes = !in_quotes;
      parsed.text += c;
      ++i;
    } else if (in_quotes) {
      parsed.text += c;
      ++i;
    } else if (c == '^') {
      if (i + 1 < command.size()) parsed.text += command[i + 1];
      i += 2;
    } else if (c == '>' || c == '<') {
      Redirection redirection;
      redirection.handle = c == '>' ? 1 : 0;
      if (digit_before != std::string::npos) {
        redirection.handle = parsed.text[digit_before] - '0';
        parsed.text.erase(digit_before, 1);
      }
      ++i;
      redirection.kind = c == '>' ? RedirectionKind::kTruncate : RedirectionKind::kRead;
      if (c == '>' && i < command.size() && command[i] == '>') {
        redirection.kind = RedirectionKind::kAppend;
        ++i;
      }
      if (redirection.kind != RedirectionKind::kAppend && i < command.size() && command[i] == '&') {
        if (i + 1 >= command.size() || !IsDigit(command[i + 1])) {
          return {.text = {}, .redirections = {}, .error = kSyntaxError};
        }
        redirection.kind = RedirectionKind::kDuplicate;
        redirection.target_handle = command[i + 1] - '0';
        i += 2;
      } else {
        i = ReadFileName(command, i, redirection.target);
        if (redirection.target.empty()) {
          return {.text = {}, .redirections = {}, .error = kSyntaxError};
        }
      }
      parsed.redirections.push_back(std::move(redirection));
    } else {
      if (IsDigit(c)) bare_digit_at = parsed.text.size();
      parsed.text += c;
      ++i;
    }
  }
  return parsed;
}

}  // namespace wavforge::cmd

#include "platform/command_line.h"

namespace platform {
namespace {

bool IsSeparator(char c) {
  return c == ' ' || c == '\t';
}

std::size_t SkipSeparators(std::string_view text, std::size_t pos) {
  while (pos < text.size() && IsSeparator(text[pos])) ++pos;
  return pos;
}

// The program name: quotes toggle grouping and are dropped, nothing is escaped.
std::size_t ReadProgramName(std::string_view text, std::size_t pos, std::string& name) {
  bool in_quotes = false;
  while (pos < text.size() && (in_quotes || !IsSeparator(text[pos]))) {
    if (text[pos] == '"') {
      in_quotes = !in_quotes;
    } else {
      name += text[pos];
    }
    ++pos;
  }
  return pos;
}

std::size_t ReadArgument(std::string_view text, std::size_t pos, std::string& argument) {
  bool in_quotes = false;
  while (pos < text.size()) {
    std::size_t backslashes = 0;
    while (pos < text.size() && text[pos] == '\\') {
      ++backslashes;
      ++pos;
    }
    if (pos < text.size() && text[pos] == '"') {
      argument.append(backslashes / 2, '\\');
      if (backslashes % 2 == 1) {
        argument += '"';
      } else if (in_quotes && pos + 1 < text.size() && text[pos + 1] == '"') {
        argument += '"';
        ++pos;
      } else {
        in_quotes = !in_quotes;
      }
      ++pos;
      continue;
    }
    argument.append(backslashes, '\\');
    if (pos >= text.size() || (!in_quotes && IsSeparator(text[pos]))) break;
    argument += text[pos];
    ++pos;
  }
  return pos;
}

}  // namespace

std::vector<std::string> SplitCommandLine(std::string_view command_line) {
  std::vector<std::string> arguments;
  std::size_t pos = SkipSeparators(command_line, 0);
  if (pos >= command_line.size()) return arguments;
  arguments.emplace_back();
  pos = ReadProgramName(command_line, pos, arguments.back());
  for (pos = SkipSeparators(command_line, pos); pos < command_line.size();
       pos = SkipSeparators(command_line, pos)) {
    arguments.emplace_back();
    pos = ReadArgument(command_line, pos, arguments.back());
  }
  return arguments;
}

std::string_view ProgramNameAsWritten(std::string_view command_line) {
  const std::size_t begin = SkipSeparators(command_line, 0);
  std::string ignored;
  const std::size_t end = ReadProgramName(command_line, begin, ignored);
  return command_line.substr(begin, end - begin);
}

}  // namespace platform

#include "shell/file_list.h"

#include "settings/text_replace.h"

namespace wavforge {

bool ParseCommandLine(std::string_view command_line, FileList& file_list) {
  if (command_line.empty()) return false;
  std::string collected;
  bool in_quotes = false;
  for (const char c : command_line) {
    if (c == '"') {
      if (in_quotes) collected += '|';
      in_quotes = !in_quotes;
    } else if (c == ' ' && !in_quotes) {
      collected += '|';
    } else {
      collected += c;
    }
  }
  collected = ReplaceAll(collected, "||", "|");
  std::vector<std::string> items;
  std::size_t start = 0;
  for (std::size_t bar; (bar = collected.find('|', start)) != std::string::npos; start = bar + 1) {
    items.push_back(collected.substr(start, bar - start));
  }
  items.push_back(collected.substr(start));
  file_list.Replace(std::move(items));
  return true;
}

std::string JoinCommandLine(const std::vector<std::string>& arguments) {
  std::string line;
  for (const auto& argument : arguments) {
    if (!line.empty()) line += ' ';
    const bool quote = argument.empty() || argument.find(' ') != std::string::npos;
    line += quote ? '"' + argument + '"' : argument;
  }
  return line;
}

}  // namespace wavforge

#include "cmd/command_chain.h"

#include "cmd/command_word.h"

namespace wavforge::cmd {
namespace {

bool IsEmptyCommand(std::string_view text) {
  return TrimCommandStart(text).empty();
}

CommandChain Refuse(std::string message) {
  CommandChain chain;
  chain.error = std::move(message);
  return chain;
}

}  // namespace

CommandChain SplitCommandChain(std::string_view line) {
  CommandChain chain;
  Connector connector = Connector::kFirst;
  std::size_t start = 0;
  std::size_t i = 0;
  bool in_quotes = false;
  auto finish = [&](std::size_t end) {
    chain.commands.push_back({connector, std::string(line.substr(start, end - start))});
  };
  while (true) {
    if (i == start && !in_quotes && IsRemark(line.substr(start))) i = line.size();
    if (i >= line.size()) break;
    const char c = line[i];
    if (c == '"') {
      in_quotes = !in_quotes;
      ++i;
    } else if (in_quotes) {
      ++i;
    } else if (c == '^') {
      i += 2;
    } else if ((c == '>' || c == '<') && i + 1 < line.size() && line[i + 1] == '&') {
      i += 2;  // 2>&1 duplicates a handle; it is no command separator
    } else if (c == '&' || c == '|') {
      const bool doubled = i + 1 < line.size() && line[i + 1] == c;
      if (c == '|' && !doubled) return Refuse("Pipes (|) are not supported by wavforge-cmd.");
      const std::string_view op = doubled ? line.substr(i, 2) : line.substr(i, 1);
      if (IsEmptyCommand(line.substr(start, i - start))) {
        return Refuse(std::string(op) + " was unexpected at this time.");
      }
      finish(i);
      connector =
          c == '|' ? Connector::kOnFailure : (doubled ? Connector::kOnSuccess : Connector::kAlways);
      i += op.size();
      start = i;
    } else {
      ++i;
    }
  }
  const std::size_t end = std::min(i, line.size());
  if (!IsEmptyCommand(line.substr(start, end - start))) finish(end);
  return chain;
}

}  // namespace wavforge::cmd

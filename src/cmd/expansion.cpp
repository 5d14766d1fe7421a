#include "cmd/expansion.h"

namespace wavforge::cmd {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string Argument(const ExpansionContext& context, char digit) {
  const auto index = static_cast<std::size_t>(digit - '0');
  if (index == 0) return context.script_path;
  return index <= context.arguments.size() ? context.arguments[index - 1] : std::string();
}

std::string AllArguments(const ExpansionContext& context) {
  std::string all;
  for (const std::string& argument : context.arguments) {
    if (!all.empty()) all += ' ';
    all += argument;
  }
  return all;
}

// %~1: the argument without its surrounding quotes.
std::string WithoutQuotes(std::string text) {
  if (!text.empty() && text.front() == '"') text.erase(0, 1);
  if (!text.empty() && text.back() == '"') text.pop_back();
  return text;
}

std::optional<std::string> Lookup(const ExpansionContext& context, std::string_view name) {
  return context.lookup ? context.lookup(name) : std::nullopt;
}

std::string ExpandScriptLine(std::string_view line, const ExpansionContext& context) {
  std::string out;
  std::size_t i = 0;
  while (i < line.size()) {
    if (line[i] != '%') {
      out += line[i++];
      continue;
    }
    const char next = i + 1 < line.size() ? line[i + 1] : '\0';
    if (next == '%') {
      out += '%';
      i += 2;
    } else if (IsDigit(next)) {
      out += Argument(context, next);
      i += 2;
    } else if (next == '*') {
      out += AllArguments(context);
      i += 2;
    } else if (next == '~' && i + 2 < line.size() && IsDigit(line[i + 2])) {
      out += WithoutQuotes(Argument(context, line[i + 2]));
      i += 3;
    } else {
      const std::size_t close = line.find('%', i + 1);
      if (close == std::string_view::npos) {
        ++i;  // a lone percent sign is dropped
        continue;
      }
      if (auto value = Lookup(context, line.substr(i + 1, close - i - 1))) out += *value;
      i = close + 1;
    }
  }
  return out;
}

std::string ExpandCommandLine(std::string_view line, const ExpansionContext& context) {
  std::string out;
  std::size_t i = 0;
  while (i < line.size()) {
    if (line[i] != '%') {
      out += line[i++];
      continue;
    }
    const std::size_t close = line.find('%', i + 1);
    if (close != std::string_view::npos && close > i + 1) {
      if (auto value = Lookup(context, line.substr(i + 1, close - i - 1))) {
        out += *value;
        i = close + 1;
        continue;
      }
      // Undefined: keep "%NAME" and look again from the closing percent sign.
      out.append(line.substr(i, close - i));
      i = close;
      continue;
    }
    out += '%';
    ++i;
  }
  return out;
}

}  // namespace

std::string ExpandPercents(std::string_view line, const ExpansionContext& context) {
  return context.mode == ExpansionMode::kScript ? ExpandScriptLine(line, context)
                                                : ExpandCommandLine(line, context);
}

}  // namespace wavforge::cmd

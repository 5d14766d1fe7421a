#include "encoding/log_quoting.h"

#include <cstdio>

namespace wavforge {

std::string QuoteForLog(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\\' || c == '"') {
      quoted += '\\';
      quoted += c;
    } else if (c == '\n') {
      quoted += "\\n";
    } else if (c == '\r') {
      quoted += "\\r";
    } else if (c == '\t') {
      quoted += "\\t";
    } else if (byte < 0x20 || byte == 0x7F) {
      char escape[5];
      std::snprintf(escape, sizeof escape, "\\x%02X", byte);
      quoted += escape;
    } else {
      quoted += c;
    }
  }
  return quoted + "\"";
}

std::optional<std::string> UnquoteFromLog(std::string_view text, std::size_t& at) {
  if (at >= text.size() || text[at] != '"') return std::nullopt;
  std::string plain;
  for (std::size_t i = at + 1; i < text.size(); ++i) {
    if (text[i] == '"') {
      at = i + 1;
      return plain;
    }
    if (text[i] != '\\' || i + 1 == text.size()) {
      plain += text[i];
      continue;
    }
    const char kind = text[++i];
    if (kind == 'n') {
      plain += '\n';
    } else if (kind == 'r') {
      plain += '\r';
    } else if (kind == 't') {
      plain += '\t';
    } else if (kind == 'x' && i + 2 < text.size()) {
      plain += static_cast<char>(std::stoi(std::string(text.substr(i + 1, 2)), nullptr, 16));
      i += 2;
    } else {
      plain += kind;
    }
  }
  return std::nullopt;
}

}  // namespace wavforge

#include "platform/ini_document.h"

#include <algorithm>

namespace platform {
namespace {

constexpr std::string_view kUtf8ByteOrderMark = "\xEF\xBB\xBF";

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

char FoldAscii(char c) {
  return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::string_view Unquote(std::string_view value) {
  if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
      value.back() == value.front()) {
    return value.substr(1, value.size() - 2);
  }
  return value;
}

// Splits off the next line, dropping its LF or CR LF.
std::string_view NextLine(std::string_view& rest) {
  const auto end = rest.find('\n');
  std::string_view line = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return line;
}

}  // namespace

bool EqualsIgnoringAsciiCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, [](char x, char y) { return FoldAscii(x) == FoldAscii(y); });
}

IniDocument IniDocument::Parse(std::string_view bytes) {
  IniDocument document;
  if (bytes.starts_with(kUtf8ByteOrderMark)) bytes.remove_prefix(kUtf8ByteOrderMark.size());

  // Index of the section that entries go to; the section with the empty name is made only
  // when an entry needs it, so a file that starts with a header has none.
  std::optional<std::size_t> current;
  while (!bytes.empty()) {
    const std::string_view line = Trim(NextLine(bytes));
    if (line.empty() || line.front() == ';') continue;

    if (line.front() == '[') {
      if (const auto close = line.find(']'); close != std::string_view::npos) {
        current = document.IndexOfOrAdd(Trim(line.substr(1, close - 1)));
        continue;
      }
    }

    const auto equals = line.find('=');
    if (equals == std::string_view::npos) continue;
    const std::string_view key = Trim(line.substr(0, equals));
    if (key.empty()) continue;
    const std::string_view value = Unquote(Trim(line.substr(equals + 1)));
    if (!current) current = document.IndexOfOrAdd("");
    document.sections_[*current].entries.push_back(Entry{std::string(key), std::string(value)});
  }
  return document;
}

std::optional<std::string> IniDocument::Value(std::string_view section,
                                              std::string_view key) const {
  const auto index = IndexOf(section);
  if (!index) return std::nullopt;
  for (const Entry& entry : sections_[*index].entries) {
    if (EqualsIgnoringAsciiCase(entry.key, key)) return entry.value;
  }
  return std::nullopt;
}

std::vector<std::string> IniDocument::SectionNames() const {
  std::vector<std::string> names;
  for (const Section& section : sections_) {
    if (!section.name.empty()) names.push_back(section.name);
  }
  return names;
}

std::vector<std::string> IniDocument::KeyNames(std::string_view section) const {
  std::vector<std::string> names;
  if (const auto index = IndexOf(section)) {
    for (const Entry& entry : sections_[*index].entries) names.push_back(entry.key);
  }
  return names;
}

std::optional<std::size_t> IniDocument::IndexOf(std::string_view name) const {
  for (std::size_t index = 0; index < sections_.size(); ++index) {
    if (EqualsIgnoringAsciiCase(sections_[index].name, name)) return index;
  }
  return std::nullopt;
}

std::size_t IniDocument::IndexOfOrAdd(std::string_view name) {
  if (const auto index = IndexOf(name)) return *index;
  sections_.push_back(Section{std::string(name), {}});
  return sections_.size() - 1;
}

}  // namespace platform

#include "settings/profile_values.h"

#include <limits>
#include <utility>

namespace wavforge {
namespace {

std::string CutToBuffer(std::string_view text, std::size_t capacity) {
  text = text.substr(0, text.find('\0'));
  if (capacity == 0) return {};
  return std::string(text.substr(0, capacity - 1));
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::int64_t LeadingInteger(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size() && (text[at] == ' ' || text[at] == '\t')) ++at;
  bool negative = false;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) negative = text[at++] == '-';

  // Accumulated towards the sign so that the most negative value is reachable as well.
  constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
  constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
  std::int64_t result = 0;
  for (; at < text.size() && IsDigit(text[at]); ++at) {
    const int digit = text[at] - '0';
    if (negative) {
      if (result < (kMin + digit) / 10) return kMin;
      result = result * 10 - digit;
    } else {
      if (result > (kMax - digit) / 10) return kMax;
      result = result * 10 + digit;
    }
  }
  return result;
}

// The names as the profile API writes them into a buffer: each followed by a NUL, the list
// closed by one more. A list that does not fit keeps capacity - 2 characters.
std::vector<std::string> CutNameList(const std::vector<std::string>& names, std::size_t capacity) {
  std::string joined;
  for (const std::string& name : names) {
    joined += name;
    joined += '\0';
  }
  if (joined.size() + 1 > capacity) joined.resize(capacity < 2 ? 0 : capacity - 2);
  std::vector<std::string> pieces;
  for (std::string& piece : SplitList(joined, '\0')) {
    if (!piece.empty()) pieces.push_back(std::move(piece));
  }
  return pieces;
}

}  // namespace

std::string GetProfileText(const platform::ProfileReader& reader, const std::string& file,
                           const std::string& section, const std::string& key,
                           const std::string& default_text, std::size_t capacity) {
  const auto value = reader.ReadValue(file, section, key);
  return CutToBuffer(value ? *value : default_text, capacity);
}

std::int64_t GetProfileNumber(const platform::ProfileReader& reader, const std::string& file,
                              const std::string& section, const std::string& key,
                              std::int64_t default_number) {
  const auto value = reader.ReadValue(file, section, key);
  if (!value || value->empty()) return default_number;
  return LeadingInteger(*value);
}

std::vector<std::string> GetProfileSectionNames(const platform::ProfileReader& reader,
                                                const std::string& file, std::size_t capacity) {
  return CutNameList(reader.SectionNames(file), capacity);
}

std::vector<std::string> GetProfileKeyNames(const platform::ProfileReader& reader,
                                            const std::string& file, const std::string& section,
                                            std::size_t capacity) {
  return CutNameList(reader.KeyNames(file, section), capacity);
}

std::vector<std::string> SplitList(std::string_view text, char separator) {
  std::vector<std::string> entries;
  if (text.empty()) return entries;
  for (;;) {
    const auto end = text.find(separator);
    entries.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  return entries;
}

}  // namespace wavforge

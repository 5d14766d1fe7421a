// Feeds arbitrary bytes as a profile file to the INI parser: it must neither crash nor hang,
// every listed section and key must be found again by name in any letter case, no name may
// keep the blanks (spaces and tabs) around it, and no value may span a line end.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/ini_document.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

bool HasOuterBlank(std::string_view text) {
  const auto blank = [](char c) { return c == ' ' || c == '\t'; };
  return !text.empty() && (blank(text.front()) || blank(text.back()));
}

std::string Upper(std::string text) {
  for (char& c : text) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto document = platform::IniDocument::Parse(bytes);
  auto sections = document.SectionNames();
  sections.push_back("");
  for (const auto& section : sections) {
    Require(!HasOuterBlank(section));
    for (const auto& key : document.KeyNames(section)) {
      Require(!key.empty() && !HasOuterBlank(key));
      const auto value = document.Value(Upper(section), Upper(key));
      Require(value.has_value());
      Require(value->find('\n') == std::string::npos);
    }
  }
  return 0;
}

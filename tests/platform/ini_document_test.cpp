#include "platform/ini_document.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace platform {
namespace {

TEST(IniDocumentTest, FindsTheValue) {
  // What the case shows, the file, the section and key looked up, the value found.
  const std::tuple<const char*, std::string, const char*, const char*, std::optional<std::string>>
      cases[] = {
          {"double pair", "[S]\nk=\"abc\"", "S", "k", "abc"},
          {"single pair", "[S]\nk='abc'", "S", "k", "abc"},
          {"mismatched pair", "[S]\nk=\"abc'", "S", "k", "\"abc'"},
          {"opening only", "[S]\nk=\"abc", "S", "k", "\"abc"},
          {"closing only", "[S]\nk=abc\"", "S", "k", "abc\""},
          {"one quote alone", "[S]\nk=\"", "S", "k", "\""},
          {"inner quotes stay", "[S]\nk=\"a\"b\"", "S", "k", "a\"b"},
          {"blanks inside quotes stay", "[S]\nk=\"  a b  \"", "S", "k", "  a b  "},
          {"blanks outside quotes go", "[S]\nk=  \"x\"\t ", "S", "k", "x"},
          {"tabs around key and value", "[S]\n\tk\t=\tv\t", "S", "k", "v"},
          {"inner blanks stay", "[S]\nk= a \t b ", "S", "k", "a \t b"},
          {"blanks in the header", "\t[ \tS p\t ]\nk=v", "S p", "k", "v"},
          {"names in other case", "[GENERAL]\nLanguage=MiXeD", "general", "LANGUAGE", "MiXeD"},
          {"first value wins across case", "[S]\nKey=1\nkEY=2", "S", "key", "1"},
          {"second part of a section merged", "[A]\nx=1\n[B]\ny=2\n[a]\nz=3", "A", "z", "3"},
          {"equals sign in the value", "[S]\nk=a=b", "S", "k", "a=b"},
          {"before the first header", "k=v\n[S]\nk=w", "", "k", "v"},
          {"named section unaffected", "k=v\n[S]\nk=w", "S", "k", "w"},
          {"under []", "[S]\nk=w\n[]\nk=v", "", "k", "v"},
          {"not in a named section", "[S]\nk=w", "", "k", std::nullopt},
          {"comment line", "[S]\n;k=v", "S", ";k", std::nullopt},
          {"indented comment", "[S]\n \t;k=v", "S", ";k", std::nullopt},
          {"semicolon inside a value stays", "[S]\nk=v ; note", "S", "k", "v ; note"},
          {"commented header", ";[T]\nk=v", "", "k", "v"},
          {"CR LF before a closing quote", "[S]\r\nk=\"v\"\r\n", "S", "k", "v"},
          {"no final line end", "[S]\nk=v", "S", "k", "v"},
          {"byte order mark", "\xEF\xBB\xBFk=v", "", "k", "v"},
          {"text after the header ignored", "[S] ; note]\nk=v", "S", "k", "v"},
          {"entry after ] is no entry", "[S]k=v", "S", "k", std::nullopt},
          {"unclosed bracket is a key", "[S]\n[x=1", "S", "[x", "1"},
          {"line without equals", "[S]\nk\n", "S", "k", std::nullopt},
          {"empty key", "[S]\n=v\n", "S", "", std::nullopt},
          {"key in another section", "[S]\n[T]\nk=v", "S", "k", std::nullopt},
      };
  for (const auto& [what, file, section, key, expected] : cases) {
    EXPECT_EQ(IniDocument::Parse(file).Value(section, key), expected) << what;
  }
}

}  // namespace
}  // namespace platform

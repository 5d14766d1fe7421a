#include "platform/ini_document.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace platform {
namespace {

struct LookupCase {
  const char* what;
  std::string file;
  std::string section;
  std::string key;
  std::optional<std::string> expected;
};

void PrintTo(const LookupCase& c, std::ostream* out) {
  *out << c.what;
}

class IniLookupTest : public ::testing::TestWithParam<LookupCase> {};

TEST_P(IniLookupTest, FindsTheValue) {
  const LookupCase& c = GetParam();
  EXPECT_EQ(IniDocument::Parse(c.file).Value(c.section, c.key), c.expected) << c.what;
}

INSTANTIATE_TEST_SUITE_P(
    Quotes, IniLookupTest,
    ::testing::Values(LookupCase{"double pair", "[S]\nk=\"abc\"", "S", "k", "abc"},
                      LookupCase{"single pair", "[S]\nk='abc'", "S", "k", "abc"},
                      LookupCase{"mismatched pair", "[S]\nk=\"abc'", "S", "k", "\"abc'"},
                      LookupCase{"opening only", "[S]\nk=\"abc", "S", "k", "\"abc"},
                      LookupCase{"closing only", "[S]\nk=abc\"", "S", "k", "abc\""},
                      LookupCase{"one quote alone", "[S]\nk=\"", "S", "k", "\""},
                      LookupCase{"inner quotes stay", "[S]\nk=\"a\"b\"", "S", "k", "a\"b"},
                      LookupCase{"blanks inside quotes stay", "[S]\nk=\"  a b  \"", "S", "k",
                                 "  a b  "},
                      LookupCase{"blanks outside quotes go", "[S]\nk=  \"x\"\t ", "S", "k", "x"}));

INSTANTIATE_TEST_SUITE_P(
    Names, IniLookupTest,
    ::testing::Values(LookupCase{"tabs around key and value", "[S]\n\tk\t=\tv\t", "S", "k", "v"},
                      LookupCase{"inner blanks stay", "[S]\nk= a \t b ", "S", "k", "a \t b"},
                      LookupCase{"blanks in the header", "\t[ \tS p\t ]\nk=v", "S p", "k", "v"},
                      LookupCase{"names in other case", "[GENERAL]\nLanguage=MiXeD", "general",
                                 "LANGUAGE", "MiXeD"},
                      LookupCase{"first value wins across case", "[S]\nKey=1\nkEY=2", "S", "key",
                                 "1"},
                      LookupCase{"second part of a section merged", "[A]\nx=1\n[B]\ny=2\n[a]\nz=3",
                                 "A", "z", "3"},
                      LookupCase{"equals sign in the value", "[S]\nk=a=b", "S", "k", "a=b"}));

INSTANTIATE_TEST_SUITE_P(
    EmptySectionName, IniLookupTest,
    ::testing::Values(LookupCase{"before the first header", "k=v\n[S]\nk=w", "", "k", "v"},
                      LookupCase{"named section unaffected", "k=v\n[S]\nk=w", "S", "k", "w"},
                      LookupCase{"under []", "[S]\nk=w\n[]\nk=v", "", "k", "v"},
                      LookupCase{"not in a named section", "[S]\nk=w", "", "k", std::nullopt}));

INSTANTIATE_TEST_SUITE_P(
    Lines, IniLookupTest,
    ::testing::Values(
        LookupCase{"comment line", "[S]\n;k=v", "S", ";k", std::nullopt},
        LookupCase{"indented comment", "[S]\n \t;k=v", "S", ";k", std::nullopt},
        LookupCase{"semicolon inside a value stays", "[S]\nk=v ; note", "S", "k", "v ; note"},
        LookupCase{"commented header", ";[T]\nk=v", "", "k", "v"},
        LookupCase{"CR LF before a closing quote", "[S]\r\nk=\"v\"\r\n", "S", "k", "v"},
        LookupCase{"no final line end", "[S]\nk=v", "S", "k", "v"},
        LookupCase{"byte order mark", "\xEF\xBB\xBFk=v", "", "k", "v"},
        LookupCase{"text after the header ignored", "[S] ; note]\nk=v", "S", "k", "v"},
        LookupCase{"entry after ] is no entry", "[S]k=v", "S", "k", std::nullopt},
        LookupCase{"unclosed bracket is a key", "[S]\n[x=1", "S", "[x", "1"},
        LookupCase{"line without equals", "[S]\nk\n", "S", "k", std::nullopt},
        LookupCase{"empty key", "[S]\n=v\n", "S", "", std::nullopt},
        LookupCase{"key in another section", "[S]\n[T]\nk=v", "S", "k", std::nullopt}));

TEST(IniNameListTest, KeysInFileOrderAndSectionsOnce) {
  const std::pair<std::string, std::vector<std::string>> keys[] = {
      {"[S]\nb=1\na=2\nB=3", {"b", "a", "B"}},
      {"[S]\nx=1\n[B]\ny=2\n[s]\nz=3", {"x", "z"}},
      {"[S]\n; c=1\n\nword\n=nokey\nk=v\n", {"k"}},
      {"[T]\nk=1", {}},
  };
  for (const auto& [file, expected] : keys) {
    EXPECT_EQ(IniDocument::Parse(file).KeyNames("s"), expected) << file;
  }
  EXPECT_EQ(IniDocument::Parse("p=1\n[S]\nr=3\n[]\nq=2").KeyNames(""),
            (std::vector<std::string>{"p", "q"}));
  EXPECT_EQ(IniDocument::Parse("k=v\n[Z]\n[A]\n[]\n[z]\n[C]").SectionNames(),
            (std::vector<std::string>{"Z", "A", "C"}));
}

TEST(IniCaseFoldTest, FoldsOnlyAsciiLetters) {
  EXPECT_TRUE(EqualsIgnoringAsciiCase("MusicPath", "musicpath"));
  EXPECT_FALSE(EqualsIgnoringAsciiCase("abc", "abcd"));
  EXPECT_FALSE(EqualsIgnoringAsciiCase("[", "{"));  // 0x5B and 0x7B differ by the case bit
  EXPECT_FALSE(EqualsIgnoringAsciiCase("@", "`"));
  EXPECT_FALSE(EqualsIgnoringAsciiCase("\xC4", "\xE4"));  // Latin-1 capital and small A-umlaut
}

}  // namespace
}  // namespace platform

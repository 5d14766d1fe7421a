#include "platform/ini_document.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace platform {
namespace {

using namespace std::string_literals;

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
                      LookupCase{"empty pair", "[S]\nk=\"\"", "S", "k", ""},
                      LookupCase{"mismatched pair", "[S]\nk=\"abc'", "S", "k", "\"abc'"},
                      LookupCase{"opening only", "[S]\nk=\"abc", "S", "k", "\"abc"},
                      LookupCase{"closing only", "[S]\nk=abc\"", "S", "k", "abc\""},
                      LookupCase{"one quote alone", "[S]\nk=\"", "S", "k", "\""},
                      LookupCase{"one single quote alone", "[S]\nk='", "S", "k", "'"},
                      LookupCase{"inner quotes stay", "[S]\nk=\"a\"b\"", "S", "k", "a\"b"},
                      LookupCase{"only the outer pair goes", "[S]\nk='\"x\"'", "S", "k", "\"x\""},
                      LookupCase{"quotes not at both ends", "[S]\nk=a \"b\"", "S", "k", "a \"b\""},
                      LookupCase{"blanks inside quotes stay", "[S]\nk=\"  a b  \"", "S", "k",
                                 "  a b  "},
                      LookupCase{"blanks outside quotes go", "[S]\nk=  \"x\"\t ", "S", "k", "x"}));

INSTANTIATE_TEST_SUITE_P(
    Blanks, IniLookupTest,
    ::testing::Values(LookupCase{"around key and value", "[S]\n  k  =  v  ", "S", "k", "v"},
                      LookupCase{"tabs around key and value", "[S]\n\tk\t=\tv\t", "S", "k", "v"},
                      LookupCase{"inner blanks stay", "[S]\nk= a \t b ", "S", "k", "a \t b"},
                      LookupCase{"blanks in the header", "\t[ \tS p\t ]\nk=v", "S p", "k", "v"},
                      LookupCase{"inner blanks of a key", "[S]\nmy key = v", "S", "my key", "v"},
                      LookupCase{"blank value", "[S]\nk=   ", "S", "k", ""}));

INSTANTIATE_TEST_SUITE_P(
    LetterCase, IniLookupTest,
    ::testing::Values(LookupCase{"section in other case", "[GENERAL]\nk=v", "general", "k", "v"},
                      LookupCase{"key in other case", "[S]\nLanguage=de", "S", "LANGUAGE", "de"},
                      LookupCase{"non-ASCII letters do not fold", "[S]\n\xC3\x84=v", "S",
                                 "\xC3\xA4", std::nullopt},
                      LookupCase{"values keep their case", "[S]\nk=MiXeD", "s", "K", "MiXeD"}));

INSTANTIATE_TEST_SUITE_P(
    EmptySectionName, IniLookupTest,
    ::testing::Values(LookupCase{"before the first header", "k=v\n[S]\nk=w", "", "k", "v"},
                      LookupCase{"named section unaffected", "k=v\n[S]\nk=w", "S", "k", "w"},
                      LookupCase{"under []", "[S]\nk=w\n[]\nk=v", "", "k", "v"},
                      LookupCase{"under [ ] with blanks", "[S]\nk=w\n[  ]\nk=v", "", "k", "v"},
                      LookupCase{"not in a named section", "[S]\nk=w", "", "k", std::nullopt},
                      LookupCase{"named section does not see it", "k=v\n[S]", "S", "k",
                                 std::nullopt}));

INSTANTIATE_TEST_SUITE_P(
    Duplicates, IniLookupTest,
    ::testing::Values(
        LookupCase{"first value wins", "[S]\nk=1\nk=2", "S", "k", "1"},
        LookupCase{"first value wins across case", "[S]\nKey=1\nkEY=2", "S", "key", "1"},
        LookupCase{"second section part is merged", "[A]\nx=1\n[B]\ny=2\n[a]\nz=3", "A", "z", "3"},
        LookupCase{"first part wins in a merged section", "[A]\nx=1\n[A]\nx=2", "a", "x", "1"}));

INSTANTIATE_TEST_SUITE_P(
    Comments, IniLookupTest,
    ::testing::Values(LookupCase{"comment line", "[S]\n;k=v", "S", ";k", std::nullopt},
                      LookupCase{"comment line is no entry", "[S]\n;k=v\nk=w", "S", "k", "w"},
                      LookupCase{"indented comment", "[S]\n \t;k=v", "S", ";k", std::nullopt},
                      LookupCase{"semicolon inside a value stays", "[S]\nk=v ; note", "S", "k",
                                 "v ; note"},
                      LookupCase{"value starting with a semicolon", "[S]\nk=;v", "S", "k", ";v"},
                      LookupCase{"commented header", ";[T]\nk=v", "", "k", "v"}));

INSTANTIATE_TEST_SUITE_P(
    LineEnds, IniLookupTest,
    ::testing::Values(LookupCase{"CR LF value", "[S]\r\nk=v\r\nj=w\r\n", "S", "k", "v"},
                      LookupCase{"CR LF last line", "[S]\r\nk=v\r\nj=w\r\n", "S", "j", "w"},
                      LookupCase{"CR LF quoted value", "[S]\r\nk=\"v\"\r\n", "S", "k", "v"},
                      LookupCase{"no final line end", "[S]\nk=v", "S", "k", "v"},
                      LookupCase{"empty lines", "\n\n[S]\n\n\nk=v\n\n", "S", "k", "v"}));

INSTANTIATE_TEST_SUITE_P(
    ByteOrderMark, IniLookupTest,
    ::testing::Values(LookupCase{"before a header", "\xEF\xBB\xBF[S]\nk=v", "S", "k", "v"},
                      LookupCase{"before an entry", "\xEF\xBB\xBFk=v", "", "k", "v"},
                      LookupCase{"inside a value stays", "[S]\nk=\xEF\xBB\xBFv", "S", "k",
                                 "\xEF\xBB\xBFv"}));

INSTANTIATE_TEST_SUITE_P(
    SpecialCharacters, IniLookupTest,
    ::testing::Values(
        LookupCase{"equals sign in the value", "[S]\nk=a=b", "S", "k", "a=b"},
        LookupCase{"brackets in the value", "[S]\nk=[x]", "S", "k", "[x]"},
        LookupCase{"bracketed value makes no section", "[S]\nk=[x]\nj=1", "S", "j", "1"},
        LookupCase{"text after the header ignored", "[S] ; note]\nk=v", "S", "k", "v"},
        LookupCase{"entry after ] is no entry", "[S]k=v", "S", "k", std::nullopt},
        LookupCase{"unclosed bracket is a key", "[S]\n[x=1", "S", "[x", "1"},
        LookupCase{"8-bit bytes pass through", "[S]\nk=caf\xE9", "S", "k", "caf\xE9"},
        LookupCase{"NUL inside a value", "[S]\nk=a\0b"s, "S", "k", "a\0b"s}));

INSTANTIATE_TEST_SUITE_P(
    Missing, IniLookupTest,
    ::testing::Values(LookupCase{"empty file", "", "S", "k", std::nullopt},
                      LookupCase{"missing section", "[S]\nk=v", "T", "k", std::nullopt},
                      LookupCase{"missing key", "[S]\nk=v", "S", "j", std::nullopt},
                      LookupCase{"line without equals", "[S]\nk\n", "S", "k", std::nullopt},
                      LookupCase{"empty key", "[S]\n=v\n", "S", "", std::nullopt},
                      LookupCase{"key in another section", "[S]\n[T]\nk=v", "S", "k",
                                 std::nullopt}));

struct KeyListCase {
  const char* what;
  std::string file;
  std::string section;
  std::vector<std::string> expected;
};

void PrintTo(const KeyListCase& c, std::ostream* out) {
  *out << c.what;
}

class IniKeyNamesTest : public ::testing::TestWithParam<KeyListCase> {};

TEST_P(IniKeyNamesTest, ListsKeysInFileOrder) {
  const KeyListCase& c = GetParam();
  EXPECT_EQ(IniDocument::Parse(c.file).KeyNames(c.section), c.expected) << c.what;
}

INSTANTIATE_TEST_SUITE_P(
    Keys, IniKeyNamesTest,
    ::testing::Values(
        KeyListCase{"file order, not sorted", "[S]\nb=1\na=2\nc=3", "S", {"b", "a", "c"}},
        KeyListCase{"duplicates listed as written", "[S]\nb=1\na=2\nB=3", "S", {"b", "a", "B"}},
        KeyListCase{"section matched ignoring case", "[Sec]\nk=1", "sEC", {"k"}},
        KeyListCase{"merged section keeps order", "[A]\nx=1\n[B]\ny=2\n[a]\nz=3", "A", {"x", "z"}},
        KeyListCase{"empty section name before headers", "p=1\nq=2\n[S]\nr=3", "", {"p", "q"}},
        KeyListCase{"empty section name under []", "[S]\nr=3\n[]\np=1", "", {"p"}},
        KeyListCase{"both ways merged", "p=1\n[S]\nr=3\n[]\nq=2", "", {"p", "q"}},
        KeyListCase{"comments, blank lines and bare words skipped",
                    "[S]\n; c=1\n\nword\n=nokey\nk=v\n",
                    "S",
                    {"k"}},
        KeyListCase{"keys trimmed", "[S]\n  a \t= 1\n\tb=2", "S", {"a", "b"}},
        KeyListCase{"section without entries", "[S]\n[T]\nk=1", "S", {}},
        KeyListCase{"missing section", "[S]\nk=1", "T", {}}));

struct SectionListCase {
  const char* what;
  std::string file;
  std::vector<std::string> expected;
};

void PrintTo(const SectionListCase& c, std::ostream* out) {
  *out << c.what;
}

class IniSectionNamesTest : public ::testing::TestWithParam<SectionListCase> {};

TEST_P(IniSectionNamesTest, ListsNamedSectionsOnce) {
  const SectionListCase& c = GetParam();
  EXPECT_EQ(IniDocument::Parse(c.file).SectionNames(), c.expected) << c.what;
}

INSTANTIATE_TEST_SUITE_P(
    Sections, IniSectionNamesTest,
    ::testing::Values(
        SectionListCase{"file order", "[Z]\n[A]\n[M]", {"Z", "A", "M"}},
        SectionListCase{
            "twice is listed once at first place", "[A]\n[B]\n[a]\n[C]", {"A", "B", "C"}},
        SectionListCase{"empty section name not listed", "k=v\n[A]\n[]\nj=w", {"A"}},
        SectionListCase{"names trimmed", "  [ A b ]  \n", {"A b"}},
        SectionListCase{"byte order mark skipped", "\xEF\xBB\xBF[A]\r\n[B]\r\n", {"A", "B"}},
        SectionListCase{"commented headers skipped", ";[A]\n[B]", {"B"}},
        SectionListCase{"bracketed values are no headers", "[A]\nk=[B]", {"A"}},
        SectionListCase{"empty file", "", {}}));

TEST(IniCaseFoldTest, FoldsOnlyAsciiLetters) {
  EXPECT_TRUE(EqualsIgnoringAsciiCase("MusicPath", "musicpath"));
  EXPECT_TRUE(EqualsIgnoringAsciiCase("", ""));
  EXPECT_FALSE(EqualsIgnoringAsciiCase("abc", "abcd"));
  EXPECT_FALSE(EqualsIgnoringAsciiCase("[", "{"));  // 0x5B and 0x7B differ by the case bit
  EXPECT_FALSE(EqualsIgnoringAsciiCase("@", "`"));
  EXPECT_FALSE(EqualsIgnoringAsciiCase("\xC4", "\xE4"));  // Latin-1 capital and small A-umlaut
}

}  // namespace
}  // namespace platform

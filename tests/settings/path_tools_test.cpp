#include "settings/path_tools.h"

#include <gtest/gtest.h>

#include <string>

namespace wavforge {
namespace {

TEST(PathBaseNameTest, TakesLastComponentWithoutExtension) {
  const std::pair<const char*, const char*> cases[] = {
      {"/home/a.b.c", "a.b"},    // only the last extension goes
      {"/home.d/anna", "anna"},  // a dot before the last separator is no extension
      {"/home/anna/", ""},       // ends with the separator
      {"anna.smith", ""},        // no separator
      {"/home/.hidden", ""},     // dot right after the separator
  };
  for (const auto& [path, expected] : cases) EXPECT_EQ(PathBaseName(path), expected) << path;
}

TEST(CleanNameTest, ReplacesForbiddenCharacters) {
  struct {
    const char* input;
    const char* path_chars;
    const char* file_name;
  } const cases[] = {
      // The other slash, colon and question mark become "_", outer blanks go; the platform
      // separator survives only in a folder path.
      {"  AC\\DC: Who?/Live  ", "AC_DC_ Who_/Live", "AC_DC_ Who__Live"},
      {"*\"<>|", "_____", "_____"},
      {"   ", "", ""},
      {"\tTab\t", "\tTab\t", "\tTab\t"},  // only spaces are trimmed
  };
  for (const auto& c : cases) {
    EXPECT_EQ(CleanPathChars(c.input), c.path_chars) << c.input;
    EXPECT_EQ(CleanFileName(c.input), c.file_name) << c.input;
  }
}

}  // namespace
}  // namespace wavforge

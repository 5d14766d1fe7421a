#include "encoding/source_names.h"

#include <gtest/gtest.h>

#include <string>

namespace wavforge {
namespace {

struct NamesCase {
  std::string source;
  std::string base_path;
  std::string folder;
  std::string file_title;
};

TEST(SourceNamesTest, SplitsTheSourcePath) {
  const NamesCase cases[] = {
      NamesCase{"/rec/Band - Song.wav", "/rec/Band - Song", "/rec/", "Band - Song"},
      NamesCase{"Song.WAV", "Song", "", "Song"},  // no folder at all
      // Only the last separator and the last four characters count.
      NamesCase{"/rec/take.wav/a.b.Wav", "/rec/take.wav/a.b", "/rec/take.wav/", "a.b"},
      // A backslash is part of a name on this platform.
      NamesCase{"C:\\Rec\\Song.wav", "C:\\Rec\\Song", "", "C:\\Rec\\Song"},
      NamesCase{"/r/av", "/", "/r/", ""}};
  for (const NamesCase& c : cases) {
    EXPECT_EQ(BasePath(c.source), c.base_path) << c.source;
    EXPECT_EQ(SourceFolder(c.source), c.folder) << c.source;
    EXPECT_EQ(FileTitle(c.source), c.file_title) << c.source;
  }
}

}  // namespace
}  // namespace wavforge

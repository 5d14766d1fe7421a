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

class SourceNamesTest : public ::testing::TestWithParam<NamesCase> {};

TEST_P(SourceNamesTest, SplitsTheSourcePath) {
  EXPECT_EQ(BasePath(GetParam().source), GetParam().base_path);
  EXPECT_EQ(SourceFolder(GetParam().source), GetParam().folder);
  EXPECT_EQ(FileTitle(GetParam().source), GetParam().file_title);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, SourceNamesTest,
    ::testing::Values(NamesCase{"/rec/Band - Song.wav", "/rec/Band - Song", "/rec/", "Band - Song"},
                      NamesCase{"Song.WAV", "Song", "", "Song"},  // no folder at all
                      // Only the last separator and the last four characters count.
                      NamesCase{"/rec/take.wav/a.b.Wav", "/rec/take.wav/a.b", "/rec/take.wav/",
                                "a.b"},
                      // A backslash is part of a name on this platform.
                      NamesCase{"C:\\Rec\\Song.wav", "C:\\Rec\\Song", "", "C:\\Rec\\Song"},
                      NamesCase{"/r/av", "/", "/r/", ""}));

}  // namespace
}  // namespace wavforge

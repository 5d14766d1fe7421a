#include "encoding/tag_placeholders.h"

#include <gtest/gtest.h>

#include <string>

namespace wavforge {
namespace {

struct ExpandCase {
  const char* name;
  std::string template_text;
  TrackTags tags;
  std::string expected;
};

const TrackTags kTags = {"Jazz FM", "Anna", "Live", "Song"};

class ExpandTagPlaceholdersTest : public ::testing::TestWithParam<ExpandCase> {};

TEST_P(ExpandTagPlaceholdersTest, ReplacesInOrder) {
  EXPECT_EQ(ExpandTagPlaceholders(GetParam().template_text, GetParam().tags), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Templates, ExpandTagPlaceholdersTest,
    ::testing::Values(
        ExpandCase{"AllFive", "%Genre%|%Station%|%Album%|%Title%|%Artist%", kTags,
                   "Jazz FM|Jazz FM|Live|Song|Anna"},
        ExpandCase{"LetterCaseIgnored", "%ARTIST%/%title%/%aLbUm%/%STATION%/%genre%", kTags,
                   "Anna/Song/Live/Jazz FM/Jazz FM"},
        ExpandCase{"EveryOccurrence", "%Artist%%Artist% %artist%", kTags, "AnnaAnna Anna"},
        ExpandCase{"UnknownAndBrokenStay", "%Year% %Artist %Title", kTags, "%Year% %Artist %Title"},
        ExpandCase{"DoublePercent", "%%Artist%%", kTags, "%Anna%"},
        // A value holding a later placeholder is replaced by the later step, in the order
        // artist, title, album, station, genre...
        ExpandCase{
            "EachValueNamesTheNextStep", "%Artist%", {"G", "%TITLE%", "%Station%", "%Album%"}, "G"},
        // ...but one holding an earlier placeholder stays.
        ExpandCase{"GenreNamedStation", "%Genre%", {"%Station%", "", "", ""}, "%Station%"}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace wavforge

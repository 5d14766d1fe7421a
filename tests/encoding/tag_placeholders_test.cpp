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

TEST(ExpandTagPlaceholdersTest, ReplacesInOrder) {
  const ExpandCase cases[] = {
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
      ExpandCase{"GenreNamedStation", "%Genre%", {"%Station%", "", "", ""}, "%Station%"}};
  for (const ExpandCase& c : cases) {
    EXPECT_EQ(ExpandTagPlaceholders(c.template_text, c.tags), c.expected) << c.name;
  }
}

}  // namespace
}  // namespace wavforge

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "encoding/read_wav_tags.h"
#include "fakes/memory_binary_files.h"
#include "support/riff_builder.h"

namespace wavforge {
namespace {

using namespace std::string_literals;
using namespace testing_support;

struct FallbackCase {
  const char* name;
  std::string path;
  std::optional<std::string> bytes;  // nothing: the file cannot be opened
  TrackTags expected;
};

std::string Wave(const std::string& info_body) {
  return RiffChunk(
      "WAVE", FormatChunk() + Chunk("data", "\x01\x02\x03\x04") + ListChunk("INFO", info_body));
}
std::string Text(const std::string& id, const std::string& text) {
  return Chunk(id, text + '\0');
}

const std::string kAllTags =
    Text("IGNR", "Jazz FM") + Text("IART", "Anna") + Text("IALB", "Live") + Text("INAM", "Song");

class ReadTagsWithNameFallbackTest : public ::testing::TestWithParam<FallbackCase> {};

TEST_P(ReadTagsWithNameFallbackTest, PrefersTagsThenName) {
  fakes::MemoryBinaryFiles files;
  if (GetParam().bytes) files.Add(GetParam().path, *GetParam().bytes);
  const TrackTags tags = ReadTagsWithNameFallback(files, GetParam().path);
  EXPECT_EQ(tags.Genre, GetParam().expected.Genre);
  EXPECT_EQ(tags.Artist, GetParam().expected.Artist);
  EXPECT_EQ(tags.Album, GetParam().expected.Album);
  EXPECT_EQ(tags.Title, GetParam().expected.Title);
}

INSTANTIATE_TEST_SUITE_P(
    Files, ReadTagsWithNameFallbackTest,
    ::testing::Values(
        FallbackCase{"AllTagsBeatTheName",
                     "/rec/Band - Tune.wav",
                     Wave(kAllTags),
                     {"Jazz FM", "Anna", "Live", "Song"}},
        // The genre is looked for first, so without it nothing is read at all.
        FallbackCase{"NoGenreReadsNothing",
                     "/rec/Band - Tune.wav",
                     Wave(Text("IART", "Anna") + Text("IALB", "Live") + Text("INAM", "Song")),
                     {"", "Band", "", "Tune"}},
        // Genre, artist and album are read before the empty title fails the read.
        FallbackCase{"EmptyTitleChunk",
                     "/rec/Band - Tune.wav",
                     Wave(Text("IGNR", "Jazz FM") + Text("IART", "Anna") + Text("IALB", "Live") +
                          Chunk("INAM", "")),
                     {"Jazz FM", "Band", "Live", "Tune"}},
        FallbackCase{"EmptyTitleChunkNoDivider",
                     "/rec/Tune.wav",
                     Wave(Text("IGNR", "Jazz FM") + Text("IART", "Anna") + Text("IALB", "Live") +
                          Chunk("INAM", "")),
                     {"Jazz FM", "Anna", "Live", ""}},
        FallbackCase{"TitleOnlyNul",
                     "/rec/Band - Tune.wav",
                     Wave(Text("IGNR", "Jazz FM") + Text("IART", "Anna") + Text("IALB", "Live") +
                          Chunk("INAM", "\0"s)),
                     {"Jazz FM", "Band", "Live", "Tune"}},
        FallbackCase{"EmptyArtistText",
                     "/rec/Band - Tune.wav",
                     Wave(Text("IGNR", "Jazz FM") + Text("IART", "") + Text("IALB", "Live") +
                          Text("INAM", "Song")),
                     {"Jazz FM", "Band", "Live", "Tune"}},
        FallbackCase{"NoTagsNoDivider", "/rec/Recording 12.wav", std::nullopt, {}},
        FallbackCase{"FurtherDividersStayInTitle",
                     "/rec/Band - Live - Part 1.wav",
                     std::nullopt,
                     {"", "Band", "", "Live - Part 1"}},
        // Only the file's own name counts, not its folder.
        FallbackCase{"DividerOnlyInFolder", "/rec/Band - Live/Tune.wav", std::nullopt, {}},
        FallbackCase{"HyphenWithoutBlanks", "/rec/Band-Tune.wav", std::nullopt, {}}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace wavforge

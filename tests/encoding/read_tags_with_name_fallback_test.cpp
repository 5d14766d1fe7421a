#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tuple>

#include "encoding/read_wav_tags.h"
#include "fakes/memory_binary_files.h"
#include "support/riff_builder.h"

namespace wavforge {
namespace {

using namespace std::string_literals;
using namespace testing_support;

std::string Wave(const std::string& info_body) {
  return RiffChunk(
      "WAVE", FormatChunk() + Chunk("data", "\x01\x02\x03\x04") + ListChunk("INFO", info_body));
}
std::string Text(const std::string& id, const std::string& text) {
  return Chunk(id, text + '\0');
}

TEST(ReadTagsWithNameFallbackTest, PrefersTagsThenTheName) {
  const std::string first_three =
      Text("IGNR", "Jazz FM") + Text("IART", "Anna") + Text("IALB", "Live");
  // The path, the file's bytes (nothing: it cannot be opened), "genre|artist|album|title".
  const std::tuple<const char*, std::optional<std::string>, const char*> cases[] = {
      {"/rec/Band - Tune.wav", Wave(first_three + Text("INAM", "Song")), "Jazz FM|Anna|Live|Song"},
      // The genre is looked for first, so without it nothing is read at all.
      {"/rec/Band - Tune.wav", Wave(Text("IART", "Anna") + Text("INAM", "Song")), "|Band||Tune"},
      // Genre, artist and album are read before the empty title fails the read.
      {"/rec/Band - Tune.wav", Wave(first_three + Chunk("INAM", "")), "Jazz FM|Band|Live|Tune"},
      {"/rec/Tune.wav", Wave(first_three + Chunk("INAM", "")), "Jazz FM|Anna|Live|"},
      // Read, but empty.
      {"/rec/Band - Tune.wav", Wave(first_three + Chunk("INAM", "\0"s)), "Jazz FM|Band|Live|Tune"},
      {"/rec/Band - Tune.wav",
       Wave(Text("IGNR", "Jazz FM") + Text("IART", "") + Text("IALB", "Live") +
            Text("INAM", "Song")),
       "Jazz FM|Band|Live|Tune"},
      {"/rec/Recording 12.wav", std::nullopt, "|||"},
      {"/rec/Band - Live - Part 1.wav", std::nullopt, "|Band||Live - Part 1"},
      {"/rec/Band - Live/Tune.wav", std::nullopt, "|||"},  // only the file's own name counts
      {"/rec/Band-Tune.wav", std::nullopt, "|||"},
  };
  for (const auto& [path, bytes, expected] : cases) {
    fakes::MemoryBinaryFiles files;
    if (bytes) files.Add(path, *bytes);
    const TrackTags tags = ReadTagsWithNameFallback(files, path);
    EXPECT_EQ(tags.Genre + "|" + tags.Artist + "|" + tags.Album + "|" + tags.Title, expected)
        << path;
  }
}

}  // namespace
}  // namespace wavforge

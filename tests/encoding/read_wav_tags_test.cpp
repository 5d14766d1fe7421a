#include "encoding/read_wav_tags.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "fakes/memory_binary_files.h"
#include "support/riff_builder.h"

namespace wavforge {
namespace {

using namespace std::string_literals;
using namespace testing_support;

const std::vector<std::string> kTagIds = {"IGNR", "IART", "IALB", "INAM"};
// What a field holds when the reader never stored into it.
const std::string kOld = "old";

struct Values {
  std::string genre = kOld, artist = kOld, album = kOld, title = kOld;
  bool operator==(const Values&) const = default;
};

void PrintTo(const Values& v, std::ostream* out) {
  *out << '{' << v.genre << '|' << v.artist << '|' << v.album << '|' << v.title << '}';
}

const std::string kAudio = "\x01\x02\x03\x04\x05\x06\x07\x08"s;

std::string Wave(const std::string& body) {
  return RiffChunk("WAVE", FormatChunk() + body);
}

std::string AllTags() {
  return InfoList({{"IGNR", "Jazz FM"}, {"IART", "Anna"}, {"IALB", "Live"}, {"INAM", "Song"}});
}
std::string TagBody(const std::string& chunks) {
  return ListChunk("INFO", chunks);
}
std::string Text(const std::string& id, const std::string& text) {
  return Chunk(id, text + '\0');
}

const Values kAll = {"Jazz FM", "Anna", "Live", "Song"};

bool Read(fakes::MemoryBinaryFiles& files, const std::string& path, Values& values,
          const std::vector<std::string>& ids = kTagIds) {
  return ReadWavTags(files, path, ids,
                     {&values.genre, &values.artist, &values.album, &values.title});
}

struct ReadCase {
  const char* name;
  std::string bytes;
  bool ok;
  Values values;
  std::vector<std::string> ids = kTagIds;
};

std::vector<ReadCase> Cases() {
  const std::string data = Chunk("data", kAudio);
  const std::string valid = Wave(data + AllTags());
  const std::string genre_artist_album =
      Text("IGNR", "Jazz FM") + Text("IART", "Anna") + Text("IALB", "Live");
  return {
      // The list after the audio; chunks of odd size are padded.
      {"InfoAfterData", valid, true, kAll},
      {"OddSizesArePadded",
       Wave(Chunk("data", "\x01\x02\x03") + Chunk("bext", "x") +
            TagBody(Chunk("ICMT", "odd") + Text("IGNR", "Jazz") + Text("IART", "Ann") +
                    Text("IALB", "L") + Text("INAM", "Song"))),
       true,
       {"Jazz", "Ann", "L", "Song"}},

      // An INFO list outside the RIFF form is not read.
      {"InfoListOutsideRiff", Wave(data) + AllTags(), false, {}},

      // One missing or empty chunk ends the reading; earlier values stay.
      {"MissingLastId",
       Wave(data + TagBody(genre_artist_album)),
       false,
       {"Jazz FM", "Anna", "Live", kOld}},

      // Sizes that point past the end of the file or of the enclosing chunk.
      {"CutInsideTitle",
       valid.substr(0, valid.size() - 4),
       true,
       {"Jazz FM", "Anna", "Live", "So"}},
      {"TitleSizePastEndOfFile",
       ChunkHeader("RIFF", static_cast<std::uint32_t>(4 + data.size() + 12 +
                                                      genre_artist_album.size() + 8 + 999)) +
           "WAVE" + data +
           ChunkHeader("LIST",
                       static_cast<std::uint32_t>(4 + genre_artist_album.size() + 8 + 999)) +
           "INFO" + genre_artist_album + ChunkHeader("INAM", 999) + "Song",
       true, kAll},
      {"TitleSizePastEndOfList",
       Wave(data + TagBody(genre_artist_album + ChunkHeader("INAM", 40) + "Song") +
            Chunk("junk", "TAIL")),
       true, kAll},
      {"RiffEndsInsideInfo",
       ChunkHeader("RIFF",
                   static_cast<std::uint32_t>(4 + data.size() + 12 + genre_artist_album.size())) +
           "WAVE" + data + ChunkHeader("LIST", 100) + "INFO" + genre_artist_album +
           Text("INAM", "Song"),
       false,
       {"Jazz FM", "Anna", "Live", kOld}},

      // A list is read from after its type.
      {"NestedListReadFromAfterItsType",
       Wave(data + TagBody(genre_artist_album + ListChunk("abcd", "text"))),
       true,
       {"text", kOld, kOld, kOld},
       {"LIST"}},
  };
}

TEST(ReadWavTagsTest, FindsChunksLikeTheMultimediaIo) {
  for (const ReadCase& c : Cases()) {
    fakes::MemoryBinaryFiles files;
    files.Add("/rec/a.wav", c.bytes);
    Values values;
    EXPECT_EQ(Read(files, "/rec/a.wav", values, c.ids), c.ok) << c.name;
    EXPECT_EQ(values, c.values) << c.name;
  }
}

// A list too big to read whole is searched header by header, skipping a big chunk unread;
// its texts are read piece by piece: a long one comes back whole, and the reading stops at
// the first NUL instead of loading the rest of the chunk.
TEST(ReadWavTagsFileTest, SearchesALargeListChunkByChunk) {
  const std::string comment(3 << 20, 'c');
  const std::string long_genre(150 * 1024, 'g');
  const std::string zeros(2 << 20, '\0');
  const std::string list =
      TagBody(Chunk("ICMT", comment) + Text("IGNR", long_genre) + Text("IART", "Anna") +
              Text("IALB", "Live") + Chunk("INAM", "Song" + zeros));
  fakes::MemoryBinaryFiles files;
  files.Add("/a.wav",
            ChunkHeader("RIFF", static_cast<std::uint32_t>(4 + list.size())) + "WAVE" + list);
  const std::uint64_t comment_begin = 12 + 12 + 8;
  const std::uint64_t zeros_begin = 12 + list.size() - zeros.size();

  Values values;
  EXPECT_TRUE(Read(files, "/a.wav", values));
  EXPECT_EQ(values, (Values{long_genre, "Anna", "Live", "Song"}));
  EXPECT_FALSE(files.ReadAnyOf(comment_begin, comment_begin + comment.size()));
  EXPECT_FALSE(files.ReadAnyOf(zeros_begin + (64 << 10), zeros_begin + zeros.size()));
}

}  // namespace
}  // namespace wavforge

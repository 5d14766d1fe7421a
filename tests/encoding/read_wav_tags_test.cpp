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
      // Where the list sits and how its chunks are ordered.
      {"InfoAfterData", valid, true, kAll},
      {"TagsInAnyOrder",
       Wave(data +
            InfoList({{"INAM", "Song"}, {"IALB", "Live"}, {"IART", "Anna"}, {"IGNR", "Jazz FM"}})),
       true, kAll},
      {"AnyFormType", RiffChunk("AVI ", AllTags()), true, kAll},
      {"JunkChunkBeforeRiff", Chunk("JUNK", "abc") + valid, true, kAll},
      {"OtherListBeforeInfo", Wave(ListChunk("adtl", Text("INAM", "Decoy")) + data + AllTags()),
       true, kAll},
      {"OddSizesArePadded",
       Wave(Chunk("data", "\x01\x02\x03") + Chunk("bext", "x") +
            TagBody(Chunk("ICMT", "odd") + Text("IGNR", "Jazz") + Text("IART", "Ann") +
                    Text("IALB", "L") + Text("INAM", "Song"))),
       true,
       {"Jazz", "Ann", "L", "Song"}},

      // Not a RIFF file, or no INFO list where it must be: nothing is stored.
      {"NotRiff", "ID3\x04\x00\x00\x00\x00\x00\x00 some mp3"s, false, {}},
      {"TruncatedHeader", valid.substr(0, 6), false, {}},
      {"NoInfoList", Wave(data), false, {}},
      {"InfoListOutsideRiff", Wave(data) + AllTags(), false, {}},
      {"InfoOnlyInSecondRiff", Wave(data) + Wave(AllTags()), false, {}},

      // One missing or empty chunk ends the reading; earlier values stay.
      {"MissingLastId",
       Wave(data + TagBody(genre_artist_album)),
       false,
       {"Jazz FM", "Anna", "Live", kOld}},
      {"EmptyAlbum",
       Wave(data + TagBody(Text("IGNR", "Jazz FM") + Text("IART", "Anna") + Chunk("IALB", "") +
                           Text("INAM", "Song"))),
       false,
       {"Jazz FM", "Anna", kOld, kOld}},
      {"AlbumOfOnlyNul",
       Wave(data + TagBody(Text("IGNR", "Jazz FM") + Text("IART", "Anna") + Chunk("IALB", "\0"s) +
                           Text("INAM", "Song"))),
       true,
       {"Jazz FM", "Anna", "", "Song"}},

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
      {"OversizedChunkHidesTheRest",
       Wave(data + TagBody(Text("IGNR", "Jazz FM") + ChunkHeader("ICMT", 0xFFFFFFF0) + "x" +
                           Text("IART", "Anna") + Text("IALB", "Live") + Text("INAM", "Song"))),
       false,
       {"Jazz FM", kOld, kOld, kOld}},

      // How ids are matched.
      {"ShortIdPaddedWithSpaces",
       Wave(data + TagBody(Text("IXY ", "pad"))),
       true,
       {"pad", kOld, kOld, kOld},
       {"IXY"}},
      {"LongIdCut", valid, true, {"Song", kOld, kOld, kOld}, {"INAMEXTRA"}},
      {"IdsAreCaseSensitive", valid, false, {}, {"inam"}},
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
    EXPECT_EQ(files.opens(), 1) << c.name;
    EXPECT_EQ(files.open_files(), 0) << c.name << ": the file must be closed again";
  }
}

TEST(ReadWavTagsFileTest, IdWithoutValueIsStillSearched) {
  fakes::MemoryBinaryFiles files;
  files.Add("/a.wav", Wave(AllTags()));
  std::string title;
  EXPECT_TRUE(ReadWavTags(files, "/a.wav", {"IGNR", "INAM"}, {nullptr, &title}));
  EXPECT_EQ(title, "Song");
  EXPECT_FALSE(ReadWavTags(files, "/a.wav", {"INAM", "ICOP"}, {&title}));
  EXPECT_FALSE(ReadWavTags(files, "/missing.wav", {"INAM"}, {&title}));
}

// A recording of gigabytes with its INFO list after the audio, held sparsely in memory.
TEST(ReadWavTagsFileTest, SkipsHugeAudioWithoutReadingIt) {
  constexpr std::uint64_t kAudioSize = 3ull << 30;
  const std::string list = AllTags();
  const std::string head =
      ChunkHeader("RIFF", static_cast<std::uint32_t>(4 + 24 + 8 + kAudioSize + list.size())) +
      "WAVE" + FormatChunk() + ChunkHeader("data", kAudioSize);
  const std::uint64_t audio_begin = head.size();
  fakes::MemoryBinaryFiles files;
  files.AddSparse("/big.wav", {{0, head}, {audio_begin + kAudioSize, list}},
                  audio_begin + kAudioSize + list.size());

  Values values;
  EXPECT_TRUE(Read(files, "/big.wav", values));
  EXPECT_EQ(values, kAll);
  EXPECT_FALSE(files.ReadAnyOf(audio_begin, audio_begin + kAudioSize));
  // Four chunk headers, the list type, then the whole list once; the ids are found in memory.
  EXPECT_LE(files.reads().size(), 6u);
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

// Writers that stream set the RIFF and LIST sizes to the largest value; the list is still read
// in one go because no size counts beyond the end of the file.
TEST(ReadWavTagsFileTest, StreamingSizesNeedNoExtraReads) {
  const std::string body =
      Text("IGNR", "Jazz FM") + Text("IART", "Anna") + Text("IALB", "Live") + Text("INAM", "Song");
  fakes::MemoryBinaryFiles files;
  files.Add("/a.wav", ChunkHeader("RIFF", 0xFFFFFFFF) + "WAVE" + FormatChunk() +
                          Chunk("data", kAudio) + ChunkHeader("LIST", 0xFFFFFFFF) + "INFO" + body);
  Values values;
  EXPECT_TRUE(Read(files, "/a.wav", values));
  EXPECT_EQ(values, kAll);
  EXPECT_LE(files.reads().size(), 6u);
}

// Other lists are passed over after their type; a "wavl" list holds audio.
TEST(ReadWavTagsFileTest, ReadsNoOtherListBeyondItsType) {
  const std::string wave_list = ListChunk("wavl", Chunk("data", std::string(1000, 'a')));
  fakes::MemoryBinaryFiles files;
  files.Add("/a.wav", Wave(wave_list + AllTags()));
  const std::uint64_t list_begin = 12 + FormatChunk().size();

  Values values;
  EXPECT_TRUE(Read(files, "/a.wav", values));
  EXPECT_EQ(values, kAll);
  EXPECT_FALSE(files.ReadAnyOf(list_begin + 12, list_begin + wave_list.size()));
}

}  // namespace
}  // namespace wavforge

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "encoding/read_wav_tags.h"
#include "platform/posix/posix_binary_file.h"
#include "support/isolated_home.h"
#include "support/riff_builder.h"

namespace wavforge {
namespace {

using namespace testing_support;

class ReadWavTagsOnDiskTest : public IsolatedHomeTest {};

// Offsets beyond 2 GiB go through the real file: the INFO list sits after 3 GiB of audio, a
// hole in a sparse file that takes no disk space.
TEST_F(ReadWavTagsOnDiskTest, ReadsTagsAfterGigabytesOfSparseAudio) {
  constexpr std::uint64_t kAudioSize = 3ull << 30;
  const std::string list =
      InfoList({{"IGNR", "Jazz FM"}, {"IART", "Anna"}, {"IALB", "Caf\xE9"}, {"INAM", "Song"}});
  const std::string head =
      ChunkHeader("RIFF", static_cast<std::uint32_t>(4 + 24 + 8 + kAudioSize + list.size())) +
      "WAVE" + FormatChunk() + ChunkHeader("data", static_cast<std::uint32_t>(kAudioSize));
  const auto path = TempFolder() / "Band - Tune.wav";
  WriteFile(path, head);
  std::filesystem::resize_file(path, head.size() + kAudioSize);
  std::ofstream(path, std::ios::binary | std::ios::app) << list;

  platform::posix::PosixBinaryFileOpener files;
  const TrackTags tags = ReadTagsWithNameFallback(files, path.string());
  EXPECT_EQ(tags.Genre, "Jazz FM");
  EXPECT_EQ(tags.Artist, "Anna");
  EXPECT_EQ(tags.Album, "Caf\xC3\xA9");
  EXPECT_EQ(tags.Title, "Song");
}

}  // namespace
}  // namespace wavforge

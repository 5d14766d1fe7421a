#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "encoding/read_wav_tags.h"
#include "platform/posix/posix_binary_file.h"
#include "support/isolated_home.h"
#include "support/riff_builder.h"

namespace wavforge {
namespace {

using namespace testing_support;

// Passes reads on to the real files and remembers where they went.
class RecordingOpener final : public platform::BinaryFileOpener {
 public:
  struct Read {
    std::uint64_t offset;
    std::size_t count;
  };

  std::unique_ptr<platform::BinaryFile> OpenForReading(const std::string& path) override {
    auto file = real_.OpenForReading(path);
    if (!file) return nullptr;
    return std::make_unique<File>(std::move(file), reads_);
  }
  const std::vector<Read>& reads() const { return reads_; }

 private:
  class File final : public platform::BinaryFile {
   public:
    File(std::unique_ptr<platform::BinaryFile> real, std::vector<Read>& reads)
        : real_(std::move(real)), reads_(reads) {}
    std::uint64_t Size() const override { return real_->Size(); }
    std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) override {
      reads_.push_back({offset, buffer.size()});
      return real_->ReadAt(offset, buffer);
    }

   private:
    std::unique_ptr<platform::BinaryFile> real_;
    std::vector<Read>& reads_;
  };

  platform::posix::PosixBinaryFileOpener real_;
  std::vector<Read> reads_;
};

class ReadWavTagsOnDiskTest : public IsolatedHomeTest {};

TEST_F(ReadWavTagsOnDiskTest, ReadsTagsAfterGigabytesOfSparseAudio) {
  constexpr std::uint64_t kAudioSize = 3ull << 30;
  const std::string list =
      InfoList({{"IGNR", "Jazz FM"}, {"IART", "Anna"}, {"IALB", "Caf\xE9"}, {"INAM", "Song"}});
  const std::string head =
      ChunkHeader("RIFF", static_cast<std::uint32_t>(4 + 24 + 8 + kAudioSize + list.size())) +
      "WAVE" + FormatChunk() + ChunkHeader("data", static_cast<std::uint32_t>(kAudioSize));
  const auto path = TempFolder() / "Band - Tune.wav";
  WriteFile(path, head);
  std::filesystem::resize_file(path, head.size() + kAudioSize);  // a hole, no disk space used
  std::ofstream(path, std::ios::binary | std::ios::app) << list;
  ASSERT_EQ(std::filesystem::file_size(path), head.size() + kAudioSize + list.size());

  RecordingOpener files;
  const TrackTags tags = ReadTagsWithNameFallback(files, path.string());
  EXPECT_EQ(tags.Genre, "Jazz FM");
  EXPECT_EQ(tags.Artist, "Anna");
  EXPECT_EQ(tags.Album, "Caf\xC3\xA9");
  EXPECT_EQ(tags.Title, "Song");

  std::uint64_t total = 0;
  for (const auto& read : files.reads()) {
    const bool touches_audio = read.count > 0 && read.offset < head.size() + kAudioSize &&
                               head.size() < read.offset + read.count;
    EXPECT_FALSE(touches_audio) << "read at " << read.offset << " of " << read.count;
    total += read.count;
  }
  EXPECT_LE(total, 100 + list.size());
}

TEST_F(ReadWavTagsOnDiskTest, FallsBackToTheNameForUnreadableFiles) {
  const auto folder = TempFolder() / "rec";
  WriteFile(folder / "A - Not Riff.wav", "ID3 mp3 data");
  RecordingOpener files;
  for (const std::string name : {"A - Not Riff.wav", "A - Missing.wav"}) {
    const TrackTags tags = ReadTagsWithNameFallback(files, (folder / name).string());
    EXPECT_EQ(tags.Artist, "A");
    EXPECT_EQ(tags.Title, name.substr(4, name.size() - 8));
    EXPECT_EQ(tags.Genre, "");
  }
}

}  // namespace
}  // namespace wavforge

#include "tools/sample_wav.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cmath>
#include <cstdint>
#include <fstream>
#include <string>
#include <utility>

#include "encoding/read_wav_tags.h"
#include "platform/posix/posix_binary_file.h"
#include "support/isolated_home.h"

namespace wavforge::tools {
namespace {

using testing_support::IsolatedHomeTest;

std::uint32_t Le32At(const std::string& bytes, std::size_t offset) {
  std::uint32_t value = 0;
  for (int i = 3; i >= 0; --i) {
    value = (value << 8) | static_cast<unsigned char>(bytes[offset + static_cast<std::size_t>(i)]);
  }
  return value;
}

std::string ReadBytes(const std::string& path, std::size_t offset, std::size_t count) {
  std::ifstream in(path, std::ios::binary);
  in.seekg(static_cast<std::streamoff>(offset));
  std::string bytes(count, '\0');
  in.read(bytes.data(), static_cast<std::streamsize>(count));
  bytes.resize(static_cast<std::size_t>(in.gcount()));
  return bytes;
}

// One tag as the program reads it: nothing when the file has no such chunk.
std::optional<std::string> ProgramReadsTag(const std::string& path, const std::string& id) {
  platform::posix::PosixBinaryFileOpener files;
  std::string value;
  if (!ReadWavTags(files, path, {id}, {&value})) return std::nullopt;
  return value;
}

struct WriteCase {
  const char* name;
  SampleWav sample;
  std::uint64_t data_bytes;  // what the data chunk must declare
};

void PrintTo(const WriteCase& row, std::ostream* out) {
  *out << row.name;
}

class SampleWavWriteTest : public IsolatedHomeTest,
                           public ::testing::WithParamInterface<WriteCase> {};

SampleWav Tone(double seconds, std::uint32_t rate, std::uint16_t channels, SampleTags tags) {
  SampleWav sample;
  sample.seconds = seconds;
  sample.rate = rate;
  sample.channels = channels;
  sample.frequency = 100;
  sample.tags = std::move(tags);
  return sample;
}

SampleWav Sparse(std::uint64_t bytes, SampleTags tags) {
  SampleWav sample;
  sample.sparse_data_bytes = bytes;
  sample.tags = std::move(tags);
  return sample;
}

constexpr std::uint64_t kSparseBytes = 256ull << 20;

INSTANTIATE_TEST_SUITE_P(
    Cases, SampleWavWriteTest,
    ::testing::Values(
        WriteCase{"AllTagsMono", Tone(1.0, 8000, 1, {"Jazz FM", "Anna", "Live at Home", "Song"}),
                  8000 * 2},
        // Odd and even text lengths, so both padded and unpadded chunks come before a title.
        WriteCase{"SomeTagsStereo", Tone(0.5, 44100, 2, {std::nullopt, "Band", std::nullopt, "T"}),
                  22050 * 4},
        WriteCase{"NoTags", Tone(0.25, 16000, 2, {}), 4000 * 4},
        WriteCase{"SparseTagged", Sparse(kSparseBytes, {"Talk", "Host", "Show", "Episode 12"}),
                  kSparseBytes}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_P(SampleWavWriteTest, ProgramReadsTheTagsBehindTheDeclaredAudio) {
  const WriteCase& row = GetParam();
  ASSERT_FALSE(ValidationError(row.sample).has_value());
  const std::string path = (TempFolder() / "sample.wav").string();
  ASSERT_FALSE(WriteSampleWav(path, row.sample));

  struct stat info {};
  ASSERT_EQ(stat(path.c_str(), &info), 0);
  const auto file_size = static_cast<std::uint64_t>(info.st_size);
  const std::string header = ReadBytes(path, 0, 44);
  ASSERT_EQ(header.size(), 44u);
  EXPECT_EQ(header.substr(0, 4), "RIFF");
  EXPECT_EQ(Le32At(header, 4), file_size - 8);
  EXPECT_EQ(header.substr(8, 8), "WAVEfmt ");
  EXPECT_EQ(header.substr(36, 4), "data");
  EXPECT_EQ(Le32At(header, 40), row.data_bytes);
  EXPECT_GE(file_size, 44 + row.data_bytes);

  const SampleTags& tags = row.sample.tags;
  EXPECT_EQ(ProgramReadsTag(path, "IGNR"), tags.genre);
  EXPECT_EQ(ProgramReadsTag(path, "IART"), tags.artist);
  EXPECT_EQ(ProgramReadsTag(path, "IALB"), tags.album);
  EXPECT_EQ(ProgramReadsTag(path, "INAM"), tags.title);
  if (!tags.genre && !tags.artist && !tags.album && !tags.title) {
    EXPECT_EQ(file_size, 44 + row.data_bytes) << "no list without tags";
  }

  if (row.sample.sparse_data_bytes) {
    // Declared, not allocated: far fewer blocks on disk than the data chunk claims.
    EXPECT_LT(static_cast<std::uint64_t>(info.st_blocks) * 512, row.data_bytes / 64);
  } else {
    // A sine of the asked frequency: about two zero crossings per period in the first channel.
    const std::string audio = ReadBytes(path, 44, row.data_bytes);
    const std::size_t frame = row.sample.channels * 2u;
    int crossings = 0;
    int peak = 0;
    std::int16_t previous = 0;
    for (std::size_t at = 0; at + 1 < audio.size(); at += frame) {
      const auto value = static_cast<std::int16_t>(
          static_cast<unsigned char>(audio[at]) | (static_cast<unsigned char>(audio[at + 1]) << 8));
      if (at > 0 && (previous < 0) != (value < 0)) ++crossings;
      peak = std::max(peak, std::abs(int{value}));
      previous = value;
    }
    const double expected = 2 * row.sample.frequency * row.sample.seconds;
    EXPECT_NEAR(crossings, expected, 2);
    EXPECT_NEAR(peak, 16384, 200);
  }
}

TEST(SampleWavValidationTest, RefusesWhatCannotBeWritten) {
  const std::pair<const char*, void (*)(SampleWav&)> cases[] = {
      {"no channels", [](SampleWav& s) { s.channels = 0; }},
      {"rate too low", [](SampleWav& s) { s.rate = 100; }},
      {"tone above half the rate", [](SampleWav& s) { s.frequency = 22051; }},
      {"no length", [](SampleWav& s) { s.seconds = 0; }},
      {"sparse data of no whole frames", [](SampleWav& s) { s.sparse_data_bytes = 6; }},
      {"sparse data beyond the RIFF limit",
       [](SampleWav& s) { s.sparse_data_bytes = 0xFFFFFFF0ull; }},
      {"NUL in a tag", [](SampleWav& s) { s.tags.title = std::string("a\0b", 3); }},
  };
  for (const auto& [what, change] : cases) {
    SampleWav sample;
    change(sample);
    EXPECT_TRUE(ValidationError(sample).has_value()) << what;
  }
}

}  // namespace
}  // namespace wavforge::tools

#include "tools/sample_wav.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

#include "encoding/media_duration.h"
#include "encoding/read_wav_tags.h"
#include "platform/posix/posix_binary_file.h"
#include "support/isolated_home.h"

namespace wavforge::tools {
namespace {

class SampleWavTest : public testing_support::IsolatedHomeTest {};

// What the benchmarks and the demo record: a tone or a hole of the length asked for, with the
// tags the program reads behind it; texts of odd and even length, one tag left out.
TEST_F(SampleWavTest, ProgramReadsTheTagsBehindTheDeclaredAudio) {
  const std::string path = (TempFolder() / "sample.wav").string();
  for (const bool sparse : {false, true}) {
    SampleWav sample;
    sample.seconds = 0.5;
    if (sparse) sample.sparse_data_bytes = 176400ull * 1000;
    sample.tags = {"Jazz FM", "Band", std::nullopt, "T"};
    ASSERT_FALSE(ValidationError(sample).has_value());
    ASSERT_FALSE(WriteSampleWav(path, sample));

    platform::posix::PosixBinaryFileOpener files;
    std::string genre, artist, title;
    EXPECT_TRUE(ReadWavTags(files, path, {"IGNR", "IART", "INAM"}, {&genre, &artist, &title}));
    EXPECT_EQ(genre + "|" + artist + "|" + title, "Jazz FM|Band|T");
    EXPECT_FALSE(ReadWavTags(files, path, {"IALB"}, {&title}));
    EXPECT_NEAR(PlayingSeconds(*files.OpenForReading(path), "wav").value_or(0), sparse ? 1000 : 0.5,
                1e-6);
    struct stat info {};
    ASSERT_EQ(stat(path.c_str(), &info), 0);
    EXPECT_TRUE(!sparse || info.st_blocks * 512 < (1 << 20)) << "the hole takes room on disk";
  }
}

}  // namespace
}  // namespace wavforge::tools

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "encoding/job_watch.h"
#include "platform/posix/console_title_search.h"
#include "support/isolated_home.h"
#include "support/riff_builder.h"
#include "support/run_process.h"
#include "support/sleeping_processes.h"

namespace {

namespace fs = std::filesystem;
using testing_support::ReadFile;
using testing_support::RunProcess;
using testing_support::WriteFile;

// One second of a 440 Hz tone, 16-bit stereo at 44.1 kHz, with an INFO list after the audio
// when tags are given.
std::string Recording(const std::vector<std::pair<std::string, std::string>>& tags) {
  std::string samples;
  for (int i = 0; i < 44100; ++i) {
    const auto value = static_cast<std::int16_t>((i % 100 < 50) ? 8000 : -8000);
    for (int channel = 0; channel < 2; ++channel) {
      samples += static_cast<char>(value & 0xFF);
      samples += static_cast<char>((value >> 8) & 0xFF);
    }
  }
  std::string body = testing_support::FormatChunk() + testing_support::Chunk("data", samples);
  if (!tags.empty()) body += testing_support::InfoList(tags);
  return testing_support::RiffChunk("WAVE", body);
}

// What ffprobe says of a file: codec, sample rate and the four tags.
std::map<std::string, std::string> Probe(const fs::path& file) {
  const auto result = RunProcess({"/usr/bin/ffprobe", "-v", "error", "-show_entries",
                                  "stream=codec_name,sample_rate:format_tags=artist,title,album,"
                                  "genre:stream_tags=artist,title,album,genre",
                                  "-of", "default=noprint_wrappers=1", file.string()});
  std::map<std::string, std::string> facts;
  std::size_t start = 0;
  while (start < result.out.size()) {
    const auto end = result.out.find('\n', start);
    const std::string line = result.out.substr(start, end - start);
    const auto equals = line.find('=');
    if (equals != std::string::npos) {
      std::string key = line.substr(0, equals);
      if (key.rfind("TAG:", 0) == 0) key = key.substr(4);
      for (char& c : key) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
      facts.emplace(key, line.substr(equals + 1));
    }
    if (end == std::string::npos) break;
    start = end + 1;
  }
  return facts;
}

// The installed program in a folder of the test's own, with the shipped fix file.
class EncodeCommandTest : public testing_support::IsolatedHomeTest {
 protected:
  void SetUp() override {
    IsolatedHomeTest::SetUp();
    program = Root() / "program";
    fs::create_directories(program);
    for (const fs::path binary : {WAVFORGE_CLI_PATH, WAVFORGE_CMD_PATH}) {
      fs::copy_file(binary, program / binary.filename());
    }
    fs::copy_file(fs::path(WAVFORGE_CLI_PATH).parent_path() / "LarkspurFix.ini",
                  program / "LarkspurFix.ini");
    recordings = Root() / "rec";
    WriteFile(
        recordings / "take1.wav",
        Recording({{"IGNR", "Jazz FM"}, {"IART", "Anna"}, {"IALB", "Live"}, {"INAM", "Blue"}}));
    WriteFile(recordings / "Band - Song.wav", Recording({}));
  }

  testing_support::ProcessResult Encode(const std::string& options) {
    WriteFile(ConfigHome() / "Larkspur/Larkspur.ini", "[Options]\n" + options);
    return RunProcess({(program / "wavforge-cli").string(), "encode", "--wait",
                       (recordings / "take1.wav").string(),
                       (recordings / "Band - Song.wav").string()});
  }

  std::string DayLog() const {
    for (const auto& entry : fs::directory_iterator(ConfigHome() / "Larkspur")) {
      if (entry.path().extension() == ".log" && entry.path().filename() != "encode.log") {
        return ReadFile(entry.path());
      }
    }
    return {};
  }

  fs::path program;
  fs::path recordings;
};

struct FormatCase {
  const char* name;
  int encoder;
  const char* extension;
  const char* codec;
  const char* sample_rate;
  const char* log_code;
};

class EncodeFormatTest : public EncodeCommandTest,
                         public ::testing::WithParamInterface<FormatCase> {};

TEST_P(EncodeFormatTest, ProducesTaggedFilesNamedFromTheirTags) {
  const auto& c = GetParam();
  const auto result = Encode("Encoder=" + std::to_string(c.encoder) + "\nDelTemp=0\n");
  ASSERT_EQ(result.exit_code, 0) << result.out << result.err;

  const fs::path music = Home() / "Music";
  const fs::path tagged = music / "Jazz FM" / (std::string("Anna - Blue") + c.extension);
  const fs::path named = music / (std::string("Band - Song") + c.extension);
  auto facts = Probe(tagged);
  EXPECT_EQ(facts["codec_name"], c.codec);
  EXPECT_EQ(facts["sample_rate"], c.sample_rate);
  EXPECT_EQ(facts["artist"], "Anna");
  EXPECT_EQ(facts["title"], "Blue");
  EXPECT_EQ(facts["album"], "Live");
  EXPECT_EQ(facts["genre"], "Jazz FM");
  facts = Probe(named);
  EXPECT_EQ(facts["codec_name"], c.codec);
  EXPECT_EQ(facts["artist"], "Band");
  EXPECT_EQ(facts["title"], "Song");

  // One line per file and the EXEC line; the script has removed itself; sources stay.
  const std::string log = DayLog();
  EXPECT_NE(log.find(std::string("\t") + c.log_code + "\ttake1\r\n"), std::string::npos) << log;
  EXPECT_NE(log.find(std::string("\t") + c.log_code + "\tBand - Song\r\n"), std::string::npos);
  EXPECT_NE(log.find("\tEXEC\t" + TempFolder().string() + "/Larkspur"), std::string::npos);
  const std::string script = result.out.substr(0, result.out.find('\n'));
  EXPECT_FALSE(fs::exists(script)) << script;
  EXPECT_TRUE(fs::exists(recordings / "take1.wav"));
  EXPECT_TRUE(fs::exists(recordings / "Band - Song.wav"));
}

INSTANTIATE_TEST_SUITE_P(
    Formats, EncodeFormatTest,
    ::testing::Values(FormatCase{"Mp3", 1, ".mp3", "mp3", "44100", "MP3 "},
                      FormatCase{"OggVorbis", 2, ".ogg", "vorbis", "44100", "OGG "},
                      FormatCase{"Wav44", 0, ".wav", "pcm_s16le", "44100", "WAV44"},
                      FormatCase{"Wav48", 5, ".wav", "pcm_s16le", "48000", "WAV48"},
                      FormatCase{"Wma44", 3, ".wma", "wmav2", "44100", "WMA44"},
                      FormatCase{"Wma48", 4, ".wma", "wmav2", "48000", "WMA48"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(EncodeCommandTest, DeletesTheSourcesWhenAskedTo) {
  const auto result = Encode("Encoder=1\nDelTemp=1\n");
  ASSERT_EQ(result.exit_code, 0) << result.out << result.err;
  EXPECT_FALSE(fs::exists(recordings / "take1.wav"));
  EXPECT_FALSE(fs::exists(recordings / "Band - Song.wav"));
  EXPECT_GT(fs::file_size(Home() / "Music/Band - Song.mp3"), 0u);
}

TEST_F(EncodeCommandTest, NormalisesBeforeEncoding) {
  const auto result = Encode("Encoder=1\nDelTemp=0\nNormalize=1\n");
  ASSERT_EQ(result.exit_code, 0) << result.out << result.err;
  EXPECT_GT(fs::file_size(Home() / "Music/Band - Song.mp3"), 0u);
  // The normalised recording has taken the source's place; no temporary file is left.
  std::vector<std::string> left;
  for (const auto& entry : fs::directory_iterator(recordings)) {
    left.push_back(entry.path().filename().string());
  }
  std::sort(left.begin(), left.end());
  EXPECT_EQ(left, (std::vector<std::string>{"Band - Song.wav", "take1.wav"}));
}

// A program that merely has a tool's name is no window: neither the watch nor --wait waits for
// it, however many run.
TEST_F(EncodeCommandTest, ProgramsNamedLikeAToolAreNoJob) {
  const testing_support::SleepingProcesses lame(Root() / "bin", "lame", 300);
  platform::posix::ConsoleTitleSearch windows;
  struct : wavforge::JobStatusView {
    void SetStartEnabled(bool) override {}
    void ShowStatusPicture(int) override {}
  } view;
  EXPECT_FALSE(wavforge::JobWatch(windows).Tick(wavforge::FileList({"/rec/a.wav"}), view));

  WriteFile(ConfigHome() / "Larkspur/Larkspur.ini", "[Options]\nEncoder=1\nDelTemp=0\n");
  // Bounded, so that waiting for the sleepers fails instead of hanging.
  const auto result = RunProcess({"/usr/bin/timeout", "30", (program / "wavforge-cli").string(),
                                  "encode", "--wait", (recordings / "take1.wav").string()});
  EXPECT_EQ(result.exit_code, 0) << result.out << result.err;
  EXPECT_GT(fs::file_size(Home() / "Music/Jazz FM/Anna - Blue.mp3"), 0u);
}

TEST_F(EncodeCommandTest, ReportsOutputsThatWereNotWritten) {
  // A fix file whose MP3 command writes nothing.
  WriteFile(program / "LarkspurFix.ini",
            "[Encode]\nMP3=rem \"%2.mp3\"\\r\\n\n[EncParams]\nMP3=a;b;c;d;e;f\n");
  const auto result = Encode("Encoder=1\nDelTemp=0\n");
  EXPECT_EQ(result.exit_code, 1);
  EXPECT_NE(result.out.find("missing " + (Home() / "Music/Band - Song.mp3").string()),
            std::string::npos)
      << result.out;
  EXPECT_NE(result.out.find("0 of 2 files encoded"), std::string::npos) << result.out;
}

TEST_F(EncodeCommandTest, DryRunPrintsTheScriptAndTouchesNothing) {
  WriteFile(ConfigHome() / "Larkspur/Larkspur.ini", "[Options]\nEncoder=1\n");
  const auto result = RunProcess({(program / "wavforge-cli").string(), "encode", "--dry-run",
                                  (recordings / "take1.wav").string(), "notes.txt"});
  ASSERT_EQ(result.exit_code, 0) << result.err;
  EXPECT_EQ(
      result.out.rfind("title Larkspur Encoder\r\nlame --quiet -V 2 --add-id3v2 --ta \"Anna\"", 0),
      0u)
      << result.out;
  EXPECT_NE(result.out.find("del \"" + (recordings / "take1").string() + ".*\"\r\n"),
            std::string::npos);
  EXPECT_FALSE(fs::exists(Home() / "Music/Jazz FM"));
  EXPECT_EQ(DayLog(), "");
  EXPECT_TRUE(fs::is_empty(TempFolder()));
}

TEST_F(EncodeCommandTest, TagsShowsWhatTheJobWouldUse) {
  const auto result =
      RunProcess({(program / "wavforge-cli").string(), "tags", (recordings / "take1.wav").string(),
                  (recordings / "Band - Song.wav").string()});
  ASSERT_EQ(result.exit_code, 0) << result.err;
  const std::string music = (Home() / "Music").string();
  const std::string rec = recordings.string();
  EXPECT_EQ(result.out, "File=" + rec +
                            "/take1.wav\nInfoRead=1\nGenre=Jazz FM\nArtist=Anna\n"
                            "Album=Live\nTitle=Blue\nBasePath=" +
                            rec +
                            "/take1\nFileTitle=take1\n"
                            "OutputPath=" +
                            music +
                            "/Jazz FM/Anna - Blue\n"
                            "File=" +
                            rec +
                            "/Band - Song.wav\nInfoRead=0\nGenre=\nArtist=Band\n"
                            "Album=\nTitle=Song\nBasePath=" +
                            rec +
                            "/Band - Song\n"
                            "FileTitle=Band - Song\nOutputPath=" +
                            music + "/Band - Song\n");
  EXPECT_FALSE(fs::exists(Home() / "Music/Jazz FM"));
}

}  // namespace

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "support/isolated_home.h"
#include "support/riff_builder.h"
#include "support/run_process.h"

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

// What ffprobe says of a file, in small letters: its codec, sample rate and tags.
std::string Probe(const fs::path& file) {
  std::string facts = RunProcess({"/usr/bin/ffprobe", "-v", "error", "-show_entries",
                                  "stream=codec_name,sample_rate:format_tags:stream_tags", "-of",
                                  "default=noprint_wrappers=1", file.string()})
                          .out;
  for (char& c : facts) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return facts;
}

// The installed program in a folder of the test's own, with the shipped fix file.
class EncodeCommandTest : public testing_support::IsolatedHomeTest {
 protected:
  void SetUp() override {
    IsolatedHomeTest::SetUp();
    program = Root() / "program";
    fs::create_directories(program);
    for (const fs::path binary : {WAVFORGE_CLI_PATH, WAVFORGE_CMD_PATH, WAVFORGE_ENCODE_PATH}) {
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

  // Runs `encode --wait` on files with these settings; prefix goes before the command (env,
  // unshare), extra after "encode".
  testing_support::ProcessResult Encode(const std::string& options,
                                        std::vector<std::string> files = {},
                                        std::vector<std::string> extra = {},
                                        std::vector<std::string> prefix = {}) {
    // The options go into the seed file, so the program makes its per-user folder itself.
    fs::remove(ConfigHome() / "Larkspur/Larkspur.ini");
    WriteFile(program / "Larkspur.ini", "[Options]\n" + options);
    if (files.empty()) {
      files = {(recordings / "take1.wav").string(), (recordings / "Band - Song.wav").string()};
    }
    std::vector<std::string> argv = prefix;
    argv.push_back((program / "wavforge-cli").string());
    argv.push_back("encode");
    argv.push_back("--wait");
    argv.insert(argv.end(), extra.begin(), extra.end());
    argv.insert(argv.end(), files.begin(), files.end());
    return RunProcess(argv);
  }

  static std::vector<std::string> Names(const fs::path& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::recursive_directory_iterator it(folder, error), end; !error && it != end; ++it) {
      if (it->is_regular_file()) names.push_back(fs::relative(it->path(), folder).string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  // Whether ffprobe reads the whole file for as long as a recording of ours plays.
  static bool Plays(const fs::path& file) {
    const auto result = RunProcess({"/usr/bin/ffprobe", "-v", "error", "-show_entries",
                                    "format=duration", "-of", "csv=p=0", file.string()});
    return result.exit_code == 0 && std::atof(result.out.c_str()) > 0.9;
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
  std::string extension, codec, sample_rate, log_code;
};

class EncodeFormatTest : public EncodeCommandTest,
                         public ::testing::WithParamInterface<FormatCase> {};

TEST_P(EncodeFormatTest, ProducesTaggedFilesNamedFromTheirTags) {
  const auto& c = GetParam();
  const auto result = Encode("Encoder=" + std::to_string(c.encoder) + "\nDelTemp=0\n");
  ASSERT_EQ(result.exit_code, 0) << result.out << result.err;

  const std::string facts = Probe(Home() / "Music/Jazz FM" / ("Anna - Blue" + c.extension));
  for (const std::string& fact :
       {"codec_name=" + c.codec, "sample_rate=" + c.sample_rate, std::string("artist=anna"),
        std::string("title=blue"), std::string("album=live"), std::string("genre=jazz fm")}) {
    EXPECT_NE(facts.find(fact + "\n"), std::string::npos) << fact << " in\n" << facts;
  }
  EXPECT_TRUE(fs::exists(Home() / "Music" / ("Band - Song" + c.extension)));

  // One line per file and the EXEC line; the script has removed itself; sources stay.
  const std::string log = DayLog();
  EXPECT_NE(log.find("\t" + c.log_code + "\ttake1\r\n"), std::string::npos) << log;
  EXPECT_NE(log.find("\t" + c.log_code + "\tBand - Song\r\n"), std::string::npos);
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

// The ways a recording used to be lost, with the encoders of a job running side by side. Each
// ends with a complete output in place or the recording kept, and nothing else in its folder
// touched.
struct LossCase {
  const char* name;
  std::string settings;
  std::vector<std::string> files;   // in the recordings folder; "!" + name: not a WAV at all
  std::vector<std::string> prefix;  // before the command
  int exit_code;
  std::vector<std::string> left;     // in the recordings folder, besides notes.txt
  std::vector<std::string> outputs;  // under the music folder, complete
  std::string says = "";             // in the report of --wait
  std::string mp3 = "";              // the MP3 template of the fix file instead of the shipped one
};

// Encoders run through the tool in place of the MP3 template: each time the recording is kept.
LossCase Kept(const char* name, std::string mp3, std::string says) {
  return {name, "Encoder=1\n", {"take1.wav"}, {}, 1, {"take1 (not encoded).wav"}, {}, says, mp3};
}

class EncodeLossTest : public EncodeCommandTest, public ::testing::WithParamInterface<LossCase> {};

TEST_P(EncodeLossTest, KeepsTheRecordingOrWritesACompleteOutput) {
  auto c = GetParam();
  WriteFile(recordings / "notes.txt", "bystander");
  fs::remove(recordings / "take1.wav");
  fs::remove(recordings / "Band - Song.wav");
  std::vector<std::string> job;
  for (auto file : c.files) {
    const bool garbage = file[0] == '!';
    if (garbage) file = file.substr(1);
    const std::string title = fs::path(file).stem().string();
    WriteFile(
        recordings / file,
        garbage ? testing_support::RiffChunk("WAVE", "not audio")
                : Recording({{"IGNR", "Jazz"}, {"IART", "Anna"}, {"IALB", "L"}, {"INAM", title}}));
    job.push_back((recordings / file).string());
  }
  // An encoder that fails for the recording titled "b" and, for "k", ends the tool that runs it
  // as a crash or a power cut would.
  WriteFile(Root() / "failing/lame",
            "#!/bin/sh\ncase \" $* \" in *\" --tt b \"*) exit 3;; *\" --tt k \"*) kill -KILL "
            "$PPID; exit 1;; "
            "esac\nexec /usr/bin/lame \"$@\"\n");
  fs::permissions(Root() / "failing/lame", fs::perms::owner_all);
  std::string settings = c.settings;
  for (const auto& [key, path] : {std::pair{"@root", Root()}, std::pair{"@rec", recordings}}) {
    for (auto at = settings.find(key); at != std::string::npos; at = settings.find(key)) {
      settings.replace(at, std::string(key).size(), path.string());
    }
  }
  for (auto& word : c.prefix) {
    if (word.find("@root") != std::string::npos) word.replace(word.find("@root"), 5, Root());
  }
  if (!c.prefix.empty() && c.prefix[0] == "/usr/bin/unshare") {
    fs::create_directories(Root() / "small");
    if (RunProcess({"/usr/bin/unshare", "-rm", "true"}).exit_code != 0) {
      GTEST_SKIP() << "no mount namespace here";
    }
  }
  if (!c.mp3.empty()) {
    std::string fix = ReadFile(program / "LarkspurFix.ini");
    const auto line = fix.find("\nMP3=") + 1;
    fix.replace(line, fix.find('\n', line) - line,
                "MP3=wavforge-encode \"%1\" \"%7\" " + c.mp3 + "\\r\\n");
    WriteFile(program / "LarkspurFix.ini", fix);
  }
  const auto result = Encode("DelTemp=1\n" + settings, job, {}, c.prefix);
  EXPECT_EQ(result.exit_code, c.exit_code) << result.out << result.err;
  EXPECT_NE(result.out.find(c.says), std::string::npos) << result.out;
  c.left.push_back("notes.txt");
  std::sort(c.left.begin(), c.left.end());
  EXPECT_EQ(Names(recordings), c.left) << result.out;
  for (const auto& output : c.outputs) {
    EXPECT_TRUE(Plays(Home() / "Music" / output)) << output << "\n" << result.out;
  }
  // Nothing else in the music folder but the temporary file of a tool that was killed.
  auto music = Names(Home() / "Music");
  const auto temporaries = std::erase_if(
      music, [](const std::string& name) { return name.find(".wavforge-") != std::string::npos; });
  const auto killed = std::count_if(c.left.begin(), c.left.end(), [](const std::string& name) {
    return name.find(" (encoding)") != std::string::npos;
  });
  EXPECT_EQ(temporaries, static_cast<std::size_t>(killed));
  std::sort(c.outputs.begin(), c.outputs.end());
  EXPECT_EQ(music, c.outputs);
}

INSTANTIATE_TEST_SUITE_P(
    Scenarios, EncodeLossTest,
    ::testing::Values(
        LossCase{"EncoderMissing",
                 "Encoder=1\n",
                 {"take1.wav"},
                 {"/usr/bin/env", "PATH=/nonexistent"},
                 1,
                 {"take1 (not encoded).wav"},
                 {},
                 "lame was not found"},
        LossCase{"EncoderFailsMidJob",
                 "Encoder=1\nEncoders=3\n",
                 {"a.wav", "b.wav", "c.wav"},
                 {"/usr/bin/env", "PATH=@root/failing:/usr/bin:/bin"},
                 1,
                 {"b (not encoded).wav"},
                 {"Jazz/Anna - a.mp3", "Jazz/Anna - c.mp3"}},
        LossCase{"ToolKilledMidJob",
                 "Encoder=1\nEncoders=3\n",
                 {"a.wav", "k.wav", "c.wav"},
                 {"/usr/bin/env", "PATH=@root/failing:/usr/bin:/bin"},
                 1,
                 {"k (encoding).wav"},
                 {"Jazz/Anna - a.mp3", "Jazz/Anna - c.mp3"}},
        LossCase{"CorruptRecordingMidJob",
                 "Encoder=1\n",
                 {"a.wav", "!bad.wav", "c.wav"},
                 {},
                 1,
                 {"bad (not encoded).wav"},
                 {"Jazz/Anna - a.mp3", "Jazz/Anna - c.mp3"}},
        LossCase{
            "UpperCaseExtension", "Encoder=1\n", {"LOUD.WAV"}, {}, 0, {}, {"Jazz/Anna - LOUD.mp3"}},
        LossCase{"MissingLogFolder",
                 "Encoder=1\nLogFilePath=@root/no/logs\n",
                 {"take1.wav"},
                 {},
                 0,
                 {},
                 {"Jazz/Anna - take1.mp3"}},
        LossCase{"MissingMusicFolder",
                 "Encoder=1\nMusicPath=@root/nowhere\n",
                 {"take1.wav"},
                 {},
                 1,
                 {"take1 (not encoded).wav"},
                 {}},
        // oggenc reports success on a full disk; the tool sees the stream is cut.
        LossCase{"FullDisk",
                 "Encoder=2\nMusicPath=@root/small\nEncoders=2\n",
                 {"take1.wav", "take2.wav"},
                 {"/usr/bin/unshare", "-rm", "sh", "-c",
                  "mount -t tmpfs -o size=12k none @root/small && exec \"$@\"", "sh"},
                 1,
                 {"take1 (not encoded).wav", "take2 (not encoded).wav"},
                 {}},
        // An output named like its source, in any letter case, is not removed by the source's
        // del line.
        LossCase{"OutputBesideSource",
                 "Encoder=1\nMusicPath=@rec\nUseMusicSubfolder=0\nMusicFileTemplate2=TAKE1\n",
                 {"take1.wav"},
                 {},
                 0,
                 {"TAKE1 (2).mp3"},
                 {}},
        // Encoders that leave a cut or short output, or fail after writing a whole one (IFS empty:
        // the recording's hold has a blank in its name).
        Kept("CutMp3", R"(mp3 sh -c "IFS=; lame --quiet $0 $1 && truncate -s -100 $1" {in} {out})",
             "incomplete"),
        Kept(
            "CutWma",
            R"(wma sh -c "IFS=; ffmpeg -v error -y -i $0 -c:a wmav2 $1 && truncate -s -999 $1" {in} {out})",
            "incomplete"),
        Kept("CutWav", R"(wav sh -c "IFS=; sox $0 $1 && truncate -s -20000 $1" {in} {out})",
             "incomplete"),
        Kept("ShortWav", "wav sox {in} {out} trim 0 0.3", "incomplete"),
        Kept("EncoderFailsAfterWriting", R"(wav sh -c "IFS=; sox $0 $1; exit 3" {in} {out})",
             "exit code 3")),
    [](const auto& row) { return std::string(row.param.name); });

// Encoders run side by side, never more than the user allows: each start and end of a slowed
// lame is written down, and at most two may overlap.
TEST_F(EncodeCommandTest, RunsAsManyEncodersAtATimeAsAllowed) {
  const fs::path times = Root() / "times";
  WriteFile(Root() / "bin/lame", "#!/bin/sh\necho \"$(date +%s%N) 1\" >>" + times.string() +
                                     "\nsleep 0.4\n/usr/bin/lame \"$@\"\nstatus=$?\necho \"$(date "
                                     "+%s%N) -1\" >>" +
                                     times.string() + "\nexit $status\n");
  fs::permissions(Root() / "bin/lame", fs::perms::owner_all);
  std::vector<std::string> takes;
  for (int i = 1; i <= 5; ++i) {
    takes.push_back((recordings / ("take" + std::to_string(i) + ".wav")).string());
    WriteFile(
        takes.back(),
        Recording(
            {{"IGNR", "Jazz"}, {"IART", "A"}, {"IALB", "L"}, {"INAM", "T" + std::to_string(i)}}));
  }
  const auto result =
      Encode("Encoder=1\nDelTemp=1\nEncoders=2\n", takes, {},
             {"/usr/bin/env", "PATH=" + (Root() / "bin").string() + ":/usr/bin:/bin"});
  EXPECT_EQ(result.exit_code, 0) << result.out << result.err;
  EXPECT_NE(result.out.find("5 of 5 files encoded"), std::string::npos) << result.out;
  EXPECT_NE(result.out.find("/5 done] encoding take"), std::string::npos) << result.out;
  std::vector<std::pair<long long, int>> events;
  std::istringstream lines(ReadFile(times));
  for (std::pair<long long, int> event; lines >> event.first >> event.second;) {
    events.push_back(event);
  }
  std::sort(events.begin(), events.end());
  int running = 0;
  int most = 0;
  for (const auto& event : events) most = std::max(most, running += event.second);
  EXPECT_EQ(events.size(), 10u);
  EXPECT_EQ(most, 2);
}

TEST_F(EncodeCommandTest, SameNamedOutputsAreRefusedOrNumbered) {
  std::vector<std::string> takes;
  for (int i = 1; i <= 5; ++i) {
    takes.push_back((recordings / ("take" + std::to_string(i) + ".wav")).string());
    WriteFile(takes.back(), Recording({}));
  }
  auto result = Encode("Encoder=1\nDelTemp=1\n", takes);
  EXPECT_EQ(result.exit_code, 2) << result.out;
  EXPECT_NE(result.err.find(takes[4] + " and " + takes[0] + " would both be written to " +
                            (Home() / "Music/-.mp3").string()),
            std::string::npos)
      << result.err;
  EXPECT_TRUE(fs::is_empty(TempFolder()));
  EXPECT_TRUE(Names(Home() / "Music").empty());

  result = Encode("Encoder=1\nDelTemp=1\n", takes, {"--force"});
  EXPECT_EQ(result.exit_code, 0) << result.out << result.err;
  EXPECT_EQ(Names(Home() / "Music"), (std::vector<std::string>{"- (2).mp3", "- (3).mp3",
                                                               "- (4).mp3", "- (5).mp3", "-.mp3"}));
  EXPECT_NE(result.out.find("5 of 5 files encoded"), std::string::npos) << result.out;
}

TEST_F(EncodeCommandTest, ATagRunsNoCommand) {
  const std::string crafted = "x\" & touch owned & rem \"";
  WriteFile(recordings / "take1.wav",
            Recording({{"IGNR", crafted}, {"IART", crafted}, {"IALB", crafted}, {"INAM", "a\nb"}}));
  const auto result = Encode("Encoder=1\nDelTemp=0\n", {(recordings / "take1.wav").string()});
  EXPECT_EQ(result.exit_code, 0) << result.out << result.err;
  EXPECT_FALSE(fs::exists(program / "owned"));
  EXPECT_EQ(Names(program),
            (std::vector<std::string>{"Larkspur.ini", "LarkspurFix.ini", "wavforge-cli",
                                      "wavforge-cmd", "wavforge-encode"}));
  EXPECT_EQ(Names(Home() / "Music").size(), 1u);
}

// Nothing is written or started; names are given relative to the folder they are in.
TEST_F(EncodeCommandTest, RefusesJobsThatCouldLoseARecording) {
  fs::create_directories(recordings / "box.wav");
  WriteFile(Home() / "Music/Band - Song.mp3", "earlier");
  // The recordings, what stderr says of the first.
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"a\"b.wav"}, "cannot stand in a script line"},
      {{"100%PATH%.wav"}, "cannot stand in a script line"},
      {{"x*y.wav"}, "cannot stand in a script line"},
      {{"what?.wav"}, "cannot stand in a script line"},
      {{"two\nlines.wav"}, "cannot stand in a script line"},
      {{"box.wav"}, "is not a regular file"},
      {{"take1.wav", "take1.x.wav"}, "when it is done would also delete"},
      {{"Band - Song.wav"}, "already exists"},
  };
  for (const auto& [names, says] : cases) {
    for (const auto& name : names) {
      if (!fs::exists(recordings / name)) WriteFile(recordings / name, Recording({}));
    }
    const auto result =
        Encode("Encoder=1\nDelTemp=1\n", names, {}, {"/usr/bin/env", "-C", recordings.string()});
    EXPECT_EQ(result.exit_code, 2) << names[0];
    EXPECT_NE(result.err.find((recordings / names[0]).string()), std::string::npos) << result.err;
    EXPECT_NE(result.err.find(says), std::string::npos) << result.err;
    EXPECT_TRUE(fs::is_empty(TempFolder())) << names[0];
    for (const auto& name : names) EXPECT_TRUE(fs::exists(recordings / name)) << name;
  }
}

TEST_F(EncodeCommandTest, NormalisesBeforeEncoding) {
  const auto result = Encode("Encoder=1\nDelTemp=0\nNormalize=1\n");
  ASSERT_EQ(result.exit_code, 0) << result.out << result.err;
  EXPECT_GT(fs::file_size(Home() / "Music/Band - Song.mp3"), 0u);
  // sox drops the INFO list; the recording keeps its tags all the same, and so does the output.
  EXPECT_NE(Probe(Home() / "Music/Jazz FM/Anna - Blue.mp3").find("title=blue"), std::string::npos);
  // The normalised recording has taken the source's place; no temporary file is left.
  EXPECT_EQ(Names(recordings), (std::vector<std::string>{"Band - Song.wav", "take1.wav"}));
  EXPECT_NE(ReadFile(ConfigHome() / "Larkspur/encode.log").find("normalised"), std::string::npos);
}

TEST_F(EncodeCommandTest, ReportsOutputsThatWereNotWrittenAndKeepsItsFilesPrivate) {
  // A fix file whose MP3 command writes no output, only the modes of the temporary folder and
  // the script to the tools' log. Without TMPDIR the temporary folder is the private one.
  WriteFile(program / "LarkspurFix.ini",
            R"([Encode]
MP3=sh -c "stat -c %%a \"$XDG_RUNTIME_DIR/wavforge\" \"$XDG_RUNTIME_DIR\"/wavforge/*.bat" "%2.mp3" >>"%7"\r\n
[EncParams]
MP3=a;b;c;d;e;f
)");
  unsetenv("TMPDIR");
  const auto result = Encode("Encoder=1\nDelTemp=0\n");
  EXPECT_EQ(ReadFile(ConfigHome() / "Larkspur/encode.log"), "700\n600\n700\n600\n");
  const auto perms = [](const fs::path& path) { return fs::status(path).permissions(); };
  EXPECT_EQ(perms(ConfigHome() / "Larkspur"), fs::perms::owner_all);
  for (const auto& entry : fs::directory_iterator(ConfigHome() / "Larkspur")) {
    if (entry.path().extension() != ".log" || entry.path().filename() == "encode.log") continue;
    EXPECT_EQ(perms(entry), fs::perms::owner_read | fs::perms::owner_write) << entry.path();
  }
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
  const std::string take = (recordings / "take1").string();
  EXPECT_EQ(result.out.rfind("plan: " + take + ".wav -> " +
                                 (Home() / "Music/Jazz FM/Anna - Blue.mp3").string() +
                                 "\ntitle Larkspur Encoder\r\nwavforge-encode \"" + take + "\" \"" +
                                 (ConfigHome() / "Larkspur/encode.log").string() +
                                 "\" mp3 lame --quiet -V 2 --add-id3v2 --ta {artist}",
                             0),
            0u)
      << result.out;
  EXPECT_NE(result.out.find("del \"" + (recordings / "take1").string() + ".*\"\r\n"),
            std::string::npos);
  EXPECT_FALSE(fs::exists(Home() / "Music/Jazz FM"));
  EXPECT_EQ(DayLog(), "");
  EXPECT_TRUE(fs::is_empty(TempFolder()));
}

TEST_F(EncodeCommandTest, TagsShowsWhatTheJobWouldUse) {
  fs::create_directories(recordings / "box.wav");  // a folder is no recording
  const auto result = RunProcess(
      {(program / "wavforge-cli").string(), "tags", "box.wav", "take1.wav", "Band - Song.wav"},
      recordings);
  EXPECT_EQ(result.exit_code, 1);
  EXPECT_EQ(result.err, "wavforge-cli: box.wav does not exist or cannot be read\n");
  const std::string music = (Home() / "Music").string();
  EXPECT_EQ(result.out,
            "File=take1.wav\nInfoRead=1\nGenre=Jazz FM\nArtist=Anna\nAlbum=Live\nTitle=Blue\n"
            "BasePath=take1\nFileTitle=take1\nOutputPath=" +
                music +
                "/Jazz FM/Anna - Blue\n"
                "File=Band - Song.wav\nInfoRead=0\nGenre=\nArtist=Band\nAlbum=\nTitle=Song\n"
                "BasePath=Band - Song\nFileTitle=Band - Song\nOutputPath=" +
                music + "/Band - Song\n");
  EXPECT_FALSE(fs::exists(Home() / "Music/Jazz FM"));
}

}  // namespace

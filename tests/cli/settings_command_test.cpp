#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/isolated_home.h"
#include "support/run_process.h"

namespace {

namespace fs = std::filesystem;
using testing_support::ReadFile;
using testing_support::RunProcess;
using testing_support::WriteFile;

// Runs a copy of wavforge-cli installed in a program folder of the test's own, so the files
// beside it are the test's.
class CliTest : public testing_support::IsolatedHomeTest {
 protected:
  void SetUp() override {
    IsolatedHomeTest::SetUp();
    program = Root() / "program";
    fs::create_directories(program);
    fs::copy_file(WAVFORGE_CLI_PATH, program / "wavforge-cli");
  }

  testing_support::ProcessResult Cli(std::vector<std::string> args) {
    args.insert(args.begin(), (program / "wavforge-cli").string());
    return RunProcess(args);
  }

  fs::path program;
};

TEST_F(CliTest, SettingsWithNeitherFilePrintsTheDefaults) {
  const auto result = Cli({"settings"});
  ASSERT_EQ(result.exit_code, 0) << result.err;
  const std::string config = ConfigHome().string();
  EXPECT_EQ(result.out, "SettingsFile=" + config + "/Larkspur/Larkspur.ini\n" +
                            "[General]\n"
                            "LogToFile=1\n"
                            "Language=\n"
                            "[Options]\n"
                            "TempPath=" +
                            TempFolder().string() + "\n" +
                            "MusicPath=" + (Home() / "Music").string() + "\n" +
                            "LogFilePath=" + config + "/Larkspur\n" +
                            "UseMusicSubfolder=1\n"
                            "MusicFolderTemplate=%Genre%\n"
                            "MusicFileTemplate2=%Artist% - %Title%\n"
                            "Normalize=0\n"
                            "DelTemp=1\n"
                            "MP3Quality=5\n"
                            "OggVorbisQuality=5\n"
                            "WMA44Quality=2\n"
                            "WMA48Quality=2\n"
                            "Encoder=0\n"
                            "AutoUpdateCheck=0\n"
                            "[Encode]\n"
                            "Normalize=\n"
                            "WAV44=\n"
                            "MP3=\n"
                            "OggVorbis=\n"
                            "WMA44=\n"
                            "WMA48=\n"
                            "WAV48=\n"
                            "[EncParams]\n");
  EXPECT_TRUE(result.err.empty()) << result.err;
}

TEST_F(CliTest, SettingsSeedsThePerUserFileAndReadsTheFixFile) {
  WriteFile(program / "Larkspur.ini",
            "[General]\nLanguage=English\n[Options]\nEncoder=1\nMusicPath=%AppDir%/out\n");
  WriteFile(program / "LarkspurFix.ini",
            "[Encode]\nMP3=lame %5 \"%1.wav\"\n[EncParams]\n"
            "MP3=-V 2;-V 4\nWMA48=x\n");
  const auto result = Cli({"settings"});
  ASSERT_EQ(result.exit_code, 0) << result.err;
  EXPECT_EQ(ReadFile(ConfigHome() / "Larkspur/Larkspur.ini"), ReadFile(program / "Larkspur.ini"));
  for (const std::string& line : std::vector<std::string>{
           "Language=English\n", "Encoder=1\n", "MusicPath=" + program.string() + "/out\n",
           "MP3=lame %5 \"%1.wav\"\n", "[EncParams]\nMP3.0=-V 2\nMP3.1=-V 4\nWMA48.0=x\n"}) {
    EXPECT_NE(result.out.find(line), std::string::npos) << line << "\nin\n" << result.out;
  }
}

TEST_F(CliTest, ExpandPrintsOneLinePerArgument) {
  const auto result = Cli({"expand", "%temp%", "%AppDir%//x", "%NoSuchThing%"});
  ASSERT_EQ(result.exit_code, 0) << result.err;
  EXPECT_EQ(result.out, TempFolder().string() + "\n" + program.string() + "/x\n%NoSuchThing%\n");
}

struct UsageCase {
  std::vector<std::string> args;
  int exit_code;
  bool says_something_on_stderr;
};

class CliUsageTest : public CliTest, public ::testing::WithParamInterface<UsageCase> {};

TEST_P(CliUsageTest, ExitCodes) {
  const auto result = Cli(GetParam().args);
  EXPECT_EQ(result.exit_code, GetParam().exit_code) << result.out << result.err;
  EXPECT_EQ(!result.err.empty(), GetParam().says_something_on_stderr) << result.err;
}

INSTANTIATE_TEST_SUITE_P(
    Table, CliUsageTest,
    ::testing::Values(UsageCase{{}, 2, true}, UsageCase{{"frobnicate"}, 2, true},
                      UsageCase{{"expand"}, 2, true}, UsageCase{{"settings", "extra"}, 2, true},
                      UsageCase{{"--help"}, 0, false}, UsageCase{{"--version"}, 0, false}));

}  // namespace

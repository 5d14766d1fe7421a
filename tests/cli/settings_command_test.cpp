#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/isolated_home.h"
#include "support/run_process.h"

namespace {

namespace fs = std::filesystem;
using testing_support::RunProcess;

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

TEST_F(CliTest, UsageErrorsExitWith2AndSaySo) {
  for (const std::vector<std::string>& args : std::vector<std::vector<std::string>>{
           {}, {"frobnicate"}, {"expand"}, {"settings", "extra"}}) {
    const auto result = Cli(args);
    EXPECT_EQ(result.exit_code, 2) << result.out << result.err;
    EXPECT_FALSE(result.err.empty());
  }
}

}  // namespace

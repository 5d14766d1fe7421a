#include "encoding/encode_job.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "fakes/fake_ports.h"
#include "fakes/fake_user_interface.h"
#include "support/riff_builder.h"

namespace wavforge {
namespace {

using testing_support::InfoList;
using testing_support::RiffChunk;

constexpr const char* kSettingsFile = "/home/u/.config/Larkspur/Larkspur.ini";
constexpr const char* kFixFile = "/opt/wavforge/LarkspurFix.ini";
constexpr const char* kScript = "/tmp/t/Larkspur140510.bat";
constexpr const char* kLog = "/home/u/.config/Larkspur/20261119.log";

// A whole program around one job: settings and fix file in memory, sources as RIFF bytes.
class EncodeJobTest : public ::testing::Test, protected fakes::FakePorts {
 protected:
  EncodeJobTest() {
    environment.folders = {{13, "/home/u/Music"}, {26, "/home/u/.config"}, {0, "/home/u/Desktop"}};
    environment.variables = {{"TEMP", "/tmp/t"}};
    for (const char* folder : {"/home", "/home/u", "/home/u/Music", "/home/u/.config",
                               "/home/u/.config/Larkspur", "/tmp", "/tmp/t"}) {
      files.AddFolder(folder);
    }
    SetFix(
        "[Encode]\nMP3=lame %5 --ta \"%3\" \"%1.wav\" \"%2.mp3\"\\r\\n\n"
        "WAV48=ssrc %5 \"%1.wav\" \"%2.wav\"\\r\\n\n"
        "Normalize=norm \"%1.wav\" %2 %3 \"%4\"\\r\\n\n"
        "[EncParams]\nMP3=-V 2;-V 4\n");
    SetSettings("Encoder=1\nMP3Quality=1\n");
    profiles.SetFile("/opt/wavforge/English.lang", "908=Cannot start the job in %1: %2 %3\n");
  }

  void SetFix(const std::string& text) { profiles.SetFile(kFixFile, text); }
  void SetSettings(const std::string& options) {
    profiles.SetFile(kSettingsFile, "[General]\nLanguage=English\n[Options]\n" + options);
  }
  void AddTagged(const std::string& path,
                 const std::vector<std::pair<std::string, std::string>>& tags) {
    binary_files.Add(path, RiffChunk("WAVE", InfoList(tags)));
  }
  JobOutcome Run() { return job.EncodeJob(selection); }

  fakes::FakeUserInterface ui;
  Settings settings;
  SettingsLoader loader{ports};
  LanguageObject language{settings, ports, ui};
  EncodingJob job{ports, ui, loader, settings, language};
  FileList selection{{"/rec/Band - Song.wav"}};
};

TEST_F(EncodeJobTest, WritesStartsAndLogsTheScriptOfOneFile) {
  const JobOutcome outcome = Run();
  ASSERT_TRUE(outcome.started);
  const std::string expected =
      "title Larkspur Encoder\r\n"
      "lame -V 4 --ta \"Band\" \"/rec/Band - Song.wav\" \"/home/u/Music/Band - Song.mp3\"\r\n"
      "del \"/rec/Band - Song.*\"\r\n"
      "del \"/tmp/t/Larkspur140510.bat\"";
  EXPECT_EQ(files.Contents(kScript), expected);
  ASSERT_EQ(processes.scripts.size(), 1u);
  EXPECT_EQ(processes.scripts[0].command_line, kScript);
  EXPECT_EQ(processes.scripts[0].show_state, 0);
  EXPECT_EQ(selection.UpperBound(), -1);
  EXPECT_EQ(files.Contents(kLog),
            "14:05:10\tMP3 \tBand - Song\r\n14:05:10\tEXEC\t/tmp/t/Larkspur140510.bat\r\n");
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(EncodeJobTest, BuildsTheLinesInOrder) {
  AddTagged("/rec/tagged.wav", {{"IGNR", "Jazz FM"}, {"IART", "A"}, {"IALB", "L"}, {"INAM", "B"}});
  AddTagged("/rec/odd %2.WAV", {{"IGNR", "G"}, {"IART", "x\\r\\ny"}, {"IALB", ""}, {"INAM", "T"}});
  // Options, selection, and the script without its title line and its self-deleting line.
  const std::tuple<std::string, std::vector<std::string>, std::string> cases[] = {
      // Items that are no WAV add nothing.
      {"Encoder=1\nDelTemp=0\n", {"/rec/a.mp3", "", "/rec/folder", "/rec/x.wave"}, ""},
      // A tagged file goes to its genre folder; no del with DelTemp off.
      {"Encoder=1\nMP3Quality=0\nDelTemp=0\n",
       {"/rec/tagged.wav"},
       "lame -V 2 --ta \"A\" \"/rec/tagged.wav\" \"/home/u/Music/Jazz FM/A - B.mp3\"\r\n"},
      // A WAV format keeps %1 for the interpreter.
      {"Encoder=5\nDelTemp=0\n",
       {"/rec/a.wav"},
       "ssrc %1 \"/rec/a.wav\" \"/home/u/Music/-.wav\"\r\n"},
      // Normalising runs first, with time and source folder.
      {"Encoder=1\nMP3Quality=1\nNormalize=1\nDelTemp=0\n",
       {"/rec/a.wav"},
       "norm \"/rec/a.wav\" /home/u/.config/Larkspur/encode.log 140510 \"/rec/\"\r\n"
       "lame -V 4 --ta \"\" \"/rec/a.wav\" \"/home/u/Music/-.mp3\"\r\n"},
      // "%2" in the base path receives the output path; the artist's escape ends a line but is
      // only a name in the output path; the extension's letter case does not matter.
      {"Encoder=1\nMP3Quality=1\nDelTemp=0\n",
       {"/rec/odd %2.WAV"},
       "lame -V 4 --ta \"x\r\ny\" \"/rec/odd /home/u/Music/G/x_r_ny - T.wav\" "
       "\"/home/u/Music/G/x_r_ny - T.mp3\"\r\n"},
  };
  for (const auto& [options, items, expected] : cases) {
    SetSettings(options);
    selection.Replace(items);
    ASSERT_TRUE(Run().started) << expected;
    EXPECT_EQ(files.Contents(kScript),
              "title Larkspur Encoder\r\n" + expected + "del \"" + kScript + "\"");
  }
}

TEST_F(EncodeJobTest, EveryFileLogsItsFormatCodeAndTitle) {
  AddTagged("/rec/tagged.wav", {{"IGNR", "G"}, {"IART", "A"}, {"IALB", "L"}, {"INAM", "B"}});
  SetSettings("Encoder=2\n");
  SetFix("[Encode]\nOggVorbis=ogg\n[EncParams]\nOggVorbis=0;1;2;3;4;5\n");
  selection.Replace({"/rec/tagged.wav", "/rec/no tags.wav", "/rec/skip.mp3"});
  Run();
  EXPECT_EQ(files.Contents(kLog),
            "14:05:10\tOGG \ttagged\r\n14:05:10\tOGG \tno tags\r\n"
            "14:05:10\tEXEC\t/tmp/t/Larkspur140510.bat\r\n");
}

TEST_F(EncodeJobTest, FailureShowsMessage908AndKeepsTheSelection) {
  const std::string missing = "Cannot start the job in /tmp/t: 9 Subscript out of range";
  // Options, whether writing fails (last, as it cannot be undone), the message shown.
  const std::tuple<std::string, bool, std::string> cases[] = {
      {"Encoder=6\n", false, missing},
      {"Encoder=1\nMP3Quality=2\n", false, missing},
      {"Encoder=1\nMP3Quality=-1\n", false, missing},
      {"Encoder=1\nMP3Quality=1\n", true,
       "Cannot start the job in /tmp/t: 30 Read-only file system"},
  };
  for (const auto& [options, writes_fail, message] : cases) {
    SetSettings(options + "TempPath=/tmp/t\n");
    if (writes_fail) files.FailWrites(std::make_error_code(std::errc::read_only_file_system));
    ui.messages.clear();
    EXPECT_FALSE(Run().started) << options;
    ASSERT_EQ(ui.messages.size(), 1u) << options;
    EXPECT_EQ(ui.messages[0].text, message);
    EXPECT_EQ(ui.messages[0].style, platform::kCriticalIcon);
  }
  EXPECT_EQ(selection.Items(), std::vector<std::string>{"/rec/Band - Song.wav"});
  EXPECT_TRUE(processes.scripts.empty());
  EXPECT_EQ(files.Contents(kLog), std::nullopt);
}

TEST_F(EncodeJobTest, OnThe9xFamilyTheCommandInterpreterRunsTheScript) {
  environment.version = 0x80000000u;
  // The 9x family reads its settings from the program folder.
  profiles.SetFile("/opt/wavforge/Larkspur.ini", "[Options]\nEncoder=1\nMP3Quality=0\n");
  Run();
  EXPECT_TRUE(processes.scripts.empty());
  ASSERT_EQ(processes.shell.size(), 1u);
  EXPECT_EQ(processes.shell[0].file, "command");
  EXPECT_EQ(processes.shell[0].parameters, std::string("/C=") + kScript);
  EXPECT_EQ(processes.shell[0].directory, "/opt/wavforge");
}

TEST_F(EncodeJobTest, ReloadsTheSettingsButKeepsTheCheckBoxValue) {
  loader.LoadSettings(settings);  // start-up
  settings.DelTemp = false;       // the user unticks the box
  SetSettings("Encoder=1\nMP3Quality=0\nDelTemp=1\n");
  Run();
  EXPECT_EQ(files.Contents(kScript)->find("del \"/rec/Band - Song.*\""), std::string::npos);
  EXPECT_NE(files.Contents(kScript)->find("lame -V 2"), std::string::npos);
}

}  // namespace
}  // namespace wavforge

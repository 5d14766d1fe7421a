#include "settings/load_settings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "fakes/fake_clock.h"
#include "fakes/fake_environment.h"
#include "fakes/fake_processes.h"
#include "fakes/fake_registry.h"
#include "fakes/fake_window_search.h"
#include "fakes/memory_binary_files.h"
#include "platform/posix/ini_profile_reader.h"
#include "platform/posix/posix_file_system.h"
#include "support/isolated_home.h"

namespace wavforge {
namespace {

namespace fs = std::filesystem;
using testing_support::ReadFile;
using testing_support::WriteFile;

// Real files in the private home; the environment says where the folders are.
class LoadSettingsTest : public testing_support::IsolatedHomeTest {
 protected:
  void SetUp() override {
    IsolatedHomeTest::SetUp();
    program = Root() / "program";
    app_data = ConfigHome();
    fs::create_directories(program);
    fs::create_directories(app_data);  // the platform makes it when asked for its path
    environment.program_folder = program.string();
    environment.folders = {{0, (Home() / "Desktop").string()},
                           {13, (Home() / "Music").string()},
                           {26, app_data.string()}};
    environment.variables = {{"TEMP", TempFolder().string()}};
  }

  fs::path UserFile() const { return app_data / "Larkspur" / "Larkspur.ini"; }
  fs::path SeedFile() const { return program / "Larkspur.ini"; }
  fs::path FixFile() const { return program / "LarkspurFix.ini"; }

  void Load() {
    loader.LoadSettings(settings, [this](bool value) { shown.push_back(value); });
  }

  fs::path program;
  fs::path app_data;
  fakes::FakeEnvironment environment;
  platform::posix::PosixFileSystem files;
  platform::posix::IniProfileReader profiles;
  fakes::FakeRegistry registry;
  fakes::FakeClock clock;
  fakes::MemoryBinaryFiles binary_files;
  fakes::FakeProcesses processes;
  fakes::FakeWindowSearch windows;
  platform::Ports ports{environment, files,        profiles,  registry,
                        clock,       binary_files, processes, windows};
  SettingsLoader loader{ports};
  Settings settings;
  std::vector<bool> shown;
};

TEST_F(LoadSettingsTest, WithNeitherFileEverySettingTakesItsDefault) {
  Load();
  EXPECT_EQ(settings.SettingsFile, UserFile().string());
  EXPECT_EQ(settings.Language, "");
  EXPECT_TRUE(settings.LogToFile);
  EXPECT_EQ(settings.TempPath, TempFolder().string());
  EXPECT_EQ(settings.MusicPath, (Home() / "Music").string());
  EXPECT_EQ(settings.LogFilePath, (app_data / "Larkspur").string());
  EXPECT_TRUE(settings.UseMusicSubfolder);
  EXPECT_EQ(settings.MusicFolderTemplate, "%Genre%");
  EXPECT_EQ(settings.MusicFileTemplate2, "%Artist% - %Title%");
  EXPECT_FALSE(settings.Normalize);
  EXPECT_TRUE(settings.DelTemp);
  EXPECT_EQ(shown, std::vector<bool>{true});
  const std::vector<int> qualities = {
      settings.Profiles[kMp3].quality, settings.Profiles[kOggVorbis].quality,
      settings.Profiles[kWma44].quality, settings.Profiles[kWma48].quality};
  EXPECT_EQ(qualities, (std::vector<int>{5, 5, 2, 2}));
  EXPECT_EQ(settings.Encoder, 0);
  // The per-user folder is made even when there is nothing to copy into it.
  EXPECT_TRUE(fs::is_directory(UserFile().parent_path()));
  EXPECT_FALSE(fs::exists(UserFile()));
}

TEST_F(LoadSettingsTest, SeedsThePerUserFileOnlyWhenItIsMissingOrEmpty) {
  const std::string seed = "[General]\nLanguage=German\n";
  // The user's file before the load (nothing: missing), and the language then read.
  const std::pair<std::optional<std::string>, std::string> cases[] = {
      {std::nullopt, "German"},
      {"[General]\nLanguage=French\n", "French"},
      {"\n", ""},  // a blank line is content
      {"", "German"},
  };
  WriteFile(SeedFile(), seed);
  for (const auto& [user_file, language] : cases) {
    fs::remove(UserFile());
    if (user_file) WriteFile(UserFile(), *user_file);
    Load();
    EXPECT_EQ(settings.Language, language);
    EXPECT_EQ(ReadFile(UserFile()), language == "German" ? seed : *user_file);
  }
}

TEST_F(LoadSettingsTest, OnThe9xFamilyTheProgramFolderFileIsReadDirectly) {
  environment.version = 0x80000000u | 0x0A04;
  WriteFile(SeedFile(), "[General]\nLanguage=German\n");
  Load();
  EXPECT_EQ(settings.SettingsFile, SeedFile().string());
  EXPECT_EQ(settings.Language, "German");
  EXPECT_FALSE(fs::exists(UserFile().parent_path()));
}

TEST_F(LoadSettingsTest, ReadsTheFixFileTemplatesAndListsWithTheirCaps) {
  const std::string long_list = std::string(1020, 'p') + ";qrstuvwxyz";
  WriteFile(FixFile(),
            "[Encode]\nNormalize=norm %1\nWAV44=w44\nMP3=lame %5\nOggVorbis=ogg\nWMA44=wma44\n"
            "WMA48=wma48\nWAV48=w48\n[EncParams]\nMP3=a;;b;\nOggVorbis=\nWMA44=" +
                long_list + "\nWMA48=-q 1;-q 2\n");
  Load();
  EXPECT_EQ(settings.NormalizeCommand, "norm %1");
  const std::vector<std::string> commands = {"w44", "lame %5", "ogg", "wma44", "wma48", "w48"};
  for (int i = 0; i < kFormatCount; ++i) EXPECT_EQ(settings.Profiles[i].command, commands[i]);
  EXPECT_EQ(settings.Profiles[kMp3].parameters, (std::vector<std::string>{"a", "", "b", ""}));
  EXPECT_TRUE(settings.Profiles[kOggVorbis].parameters.empty());
  // 1,031 characters: cut to 1,023 before splitting.
  EXPECT_EQ(settings.Profiles[kWma44].parameters,
            (std::vector<std::string>{std::string(1020, 'p'), "qr"}));
  EXPECT_EQ(settings.Profiles[kWma48].parameters, (std::vector<std::string>{"-q 1", "-q 2"}));
}

TEST_F(LoadSettingsTest, CutsAPathTo254CharactersBeforeExpandingIt) {
  WriteFile(SeedFile(), "[Options]\nTempPath=%AppDir%" + std::string(292, 'x') + "\n");
  Load();
  EXPECT_EQ(settings.TempPath, program.string() + std::string(254 - 8, 'x'));
}

TEST_F(LoadSettingsTest, DelTempIsReadOnceAndThenKeepsTheUsersChoice) {
  WriteFile(SeedFile(), "[Options]\nDelTemp=0\n");
  Load();
  EXPECT_FALSE(settings.DelTemp);
  settings.DelTemp = true;  // ticked by the user
  Load();
  EXPECT_TRUE(settings.DelTemp);
  EXPECT_EQ(shown, std::vector<bool>{false});
}

TEST_F(LoadSettingsTest, NumberThatDoesNotFit16BitsKeepsTheOldValue) {
  WriteFile(SeedFile(), "[Options]\nEncoder=3\n");
  Load();
  const std::pair<const char*, int> loads[] = {
      {"40000", 3}, {"32767", 32767}, {"-32769", 32767}, {"-32768", -32768}};
  for (const auto& [text, expected] : loads) {
    WriteFile(UserFile(), "[Options]\nEncoder=" + std::string(text) + "\nMP3Quality=99999\n");
    Load();
    EXPECT_EQ(settings.Encoder, expected) << text;
  }
  EXPECT_EQ(settings.Profiles[kMp3].quality, 5);
}

TEST_F(LoadSettingsTest, MusicPathFallsBackToTheDesktopOnlyWhenThePlaceholderSurvives) {
  const std::string home = Home().string();
  // The setting, what the platform answers for the music folder, the path then used.
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"%MYMUSIC%", home + "/Music", home + "/Music"},
      {"%MyMusic%", "%MyMusic%", home + "/Desktop"},
      {"%MyMusic%", "%mymusic%", home + "/Desktop"},
      {"%MyMusic%/Rec", "%MyMusic%", "%MyMusic%/Rec"},
  };
  for (const auto& [setting, music_folder, expected] : cases) {
    environment.folders[13] = music_folder;
    WriteFile(UserFile(), "[Options]\nMusicPath=" + setting + "\n");
    Load();
    EXPECT_EQ(settings.MusicPath, expected) << setting << " " << music_folder;
  }
}

}  // namespace
}  // namespace wavforge

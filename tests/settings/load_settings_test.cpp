#include "settings/load_settings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <tuple>

#include "fakes/fake_ports.h"
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
    fs::create_directories(ConfigHome());  // the platform makes it when asked for its path
    fakes.environment.program_folder = (Root() / "program").string();
    fakes.environment.folders = {{0, (Home() / "Desktop").string()},
                                 {13, (Home() / "Music").string()},
                                 {26, ConfigHome().string()}};
  }

  fs::path UserFile() const { return ConfigHome() / "Larkspur" / "Larkspur.ini"; }
  fs::path SeedFile() const { return Root() / "program" / "Larkspur.ini"; }

  void Load() { loader.LoadSettings(settings); }

  fakes::FakePorts fakes;
  platform::posix::PosixFileSystem files;
  platform::posix::IniProfileReader profiles;
  platform::Ports ports{fakes.environment, files,        profiles,
                        fakes.registry,    fakes.clock,  fakes.binary_files,
                        fakes.processes,   fakes.windows};
  SettingsLoader loader{ports};
  Settings settings;
};

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

TEST_F(LoadSettingsTest, NumberThatDoesNotFit16BitsKeepsTheOldValue) {
  WriteFile(SeedFile(), "[Options]\nEncoder=3\n");
  Load();
  const std::pair<const char*, int> loads[] = {
      {"40000", 3}, {"32767", 32767}, {"-32769", 32767}, {"-32768", -32768}};
  for (const auto& [text, expected] : loads) {
    WriteFile(UserFile(), "[Options]\nEncoder=" + std::string(text) + "\n");
    Load();
    EXPECT_EQ(settings.Encoder, expected) << text;
  }
}

TEST_F(LoadSettingsTest, DelTempIsReadOnceAndThenKeepsTheUsersChoice) {
  WriteFile(SeedFile(), "[Options]\nDelTemp=0\n");
  Load();
  EXPECT_FALSE(settings.DelTemp);
  settings.DelTemp = true;  // ticked by the user
  Load();
  EXPECT_TRUE(settings.DelTemp);
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
    fakes.environment.folders[13] = music_folder;
    WriteFile(UserFile(), "[Options]\nMusicPath=" + setting + "\n");
    Load();
    EXPECT_EQ(settings.MusicPath, expected) << setting << " " << music_folder;
  }
}

}  // namespace
}  // namespace wavforge

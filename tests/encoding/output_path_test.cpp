#include "encoding/output_path.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "fakes/fake_file_system.h"
#include "platform/posix/posix_file_system.h"
#include "support/isolated_home.h"

namespace wavforge {
namespace {

struct OutputCase {
  const char* name;
  TrackTags tags;
  bool use_subfolder;
  std::string folder_template;
  std::string file_template;
  std::string expected;
  std::vector<std::string> created;  // CreateFolder calls, in order
};

const TrackTags kTags = {"Jazz FM", "A", "", "B"};
const char* const kFolder = "%Genre%";
const char* const kFile = "%Artist% - %Title%";

class OutputPathTest : public ::testing::TestWithParam<OutputCase> {};

TEST_P(OutputPathTest, BuildsFolderAndName) {
  Settings settings;
  settings.MusicPath = "/music";
  settings.UseMusicSubfolder = GetParam().use_subfolder;
  settings.MusicFolderTemplate = GetParam().folder_template;
  settings.MusicFileTemplate2 = GetParam().file_template;
  fakes::FakeFileSystem files;
  files.AddFolder("/music");
  files.AddFolder("/music/Jazz FM");
  files.AddFolder("/music/Rock");

  EXPECT_EQ(OutputPath(settings, GetParam().tags, files), GetParam().expected);
  EXPECT_EQ(files.created(), GetParam().created);
}

INSTANTIATE_TEST_SUITE_P(
    Tags, OutputPathTest,
    ::testing::Values(
        OutputCase{"GenreSubfolder",
                   kTags,
                   true,
                   kFolder,
                   kFile,
                   "/music/Jazz FM/A - B",
                   {"/music/Jazz FM"}},
        OutputCase{"SubfolderOff", kTags, false, kFolder, kFile, "/music/A - B", {}},
        OutputCase{"NoGenre", {"", "A", "", "B"}, true, kFolder, kFile, "/music/A - B", {}},
        // Without a genre the folder template is not even looked at.
        OutputCase{
            "NoGenreFixedFolder", {"", "A", "", "B"}, true, "Fixed", kFile, "/music/A - B", {}},
        OutputCase{"NewGenreFolder",
                   {"Blues", "A", "", "B"},
                   true,
                   kFolder,
                   kFile,
                   "/music/Blues/A - B",
                   {"/music/Blues"}},
        OutputCase{"BlankSubfolderDropped",
                   {"  ", "A", "", "B"},
                   true,
                   kFolder,
                   kFile,
                   "/music/A - B",
                   {}},
        OutputCase{"NoTagsGiveDash", {}, true, kFolder, kFile, "/music/-", {}},
        // Characters no name may hold become "_"; the separator only survives in the folder.
        OutputCase{"SlashAndQuestionInTitle",
                   {"", "A", "", "B/C?"},
                   true,
                   kFolder,
                   kFile,
                   "/music/A - B_C_",
                   {}},
        OutputCase{"SeparatorInGenreMakesTwoLevels",
                   {"Rock/Pop", "A", "", "B"},
                   true,
                   kFolder,
                   kFile,
                   "/music/Rock/Pop/A - B",
                   {"/music/Rock/Pop"}},
        OutputCase{"BackslashAndColonInGenre",
                   {"AC\\DC: Live", "A", "", "B"},
                   true,
                   kFolder,
                   kFile,
                   "/music/AC_DC_ Live/A - B",
                   {"/music/AC_DC_ Live"}},
        OutputCase{"SeparatorInGenreOfName",
                   {"Rock/Pop", "A", "", "B"},
                   true,
                   kFolder,
                   "%Genre% %Album%",
                   "/music/Rock/Pop/Rock_Pop",
                   {"/music/Rock/Pop"}},
        OutputCase{"TemplatesUsedAsStored",
                   kTags,
                   true,
                   "%Station%/%Artist% %Temp%",
                   "%Title% (%Album%) %Date%",
                   "/music/Jazz FM/A %Temp%/B () %Date%",
                   {"/music/Jazz FM/A %Temp%"}},
        OutputCase{"OuterBlanksTrimmed",
                   {"Jazz", " A ", "", "B  "},
                   true,
                   " %Genre% ",
                   kFile,
                   "/music/Jazz/A  - B",
                   {"/music/Jazz"}}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(OutputPathFolderTest, OnlyTheLastLevelIsCreated) {
  Settings settings;
  settings.MusicPath = "/music";
  settings.UseMusicSubfolder = true;
  settings.MusicFolderTemplate = "%Genre%";
  settings.MusicFileTemplate2 = "%Title%";
  fakes::FakeFileSystem files;
  files.AddFolder("/music");

  EXPECT_EQ(OutputPath(settings, {"Rock/Pop", "", "", "T"}, files), "/music/Rock/Pop/T");
  EXPECT_FALSE(files.HasFolder("/music/Rock"));
  EXPECT_FALSE(files.HasFolder("/music/Rock/Pop"));
  EXPECT_EQ(OutputPath(settings, {"Rock", "", "", "T"}, files), "/music/Rock/T");
  EXPECT_TRUE(files.HasFolder("/music/Rock"));
}

class OutputPathOnDiskTest : public testing_support::IsolatedHomeTest {};

TEST_F(OutputPathOnDiskTest, CreatesGenreFolderButNoMissingParent) {
  const std::filesystem::path music = Home() / "Music";
  std::filesystem::create_directories(music);
  Settings settings;
  settings.MusicPath = music.string();
  settings.UseMusicSubfolder = true;
  settings.MusicFolderTemplate = "%Genre%";
  settings.MusicFileTemplate2 = "%Artist% - %Title%";
  platform::posix::PosixFileSystem files;

  EXPECT_EQ(OutputPath(settings, {"Jazz FM", "A", "", "B"}, files),
            (music / "Jazz FM" / "A - B").string());
  EXPECT_TRUE(std::filesystem::is_directory(music / "Jazz FM"));
  // Created again over an existing folder: no harm, same answer.
  EXPECT_EQ(OutputPath(settings, {"Jazz FM", "A", "", "B"}, files),
            (music / "Jazz FM" / "A - B").string());

  EXPECT_EQ(OutputPath(settings, {"Rock/Pop", "A", "", "B"}, files),
            (music / "Rock" / "Pop" / "A - B").string());
  EXPECT_FALSE(std::filesystem::exists(music / "Rock"));
}

}  // namespace
}  // namespace wavforge

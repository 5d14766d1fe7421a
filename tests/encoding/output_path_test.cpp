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

Settings MusicSettings(const std::string& music, bool use_subfolder,
                       const std::string& folder_template, const std::string& file_template) {
  Settings settings;
  settings.MusicPath = music;
  settings.UseMusicSubfolder = use_subfolder;
  settings.MusicFolderTemplate = folder_template;
  settings.MusicFileTemplate2 = file_template;
  return settings;
}

struct OutputCase {
  const char* name;
  TrackTags tags;
  bool use_subfolder;
  std::string folder_template;
  std::string expected;
  std::vector<std::string> created;  // CreateFolder calls, in order
};

TEST(OutputPathTest, BuildsFolderAndName) {
  const OutputCase cases[] = {
      OutputCase{"GenreSubfolder",
                 {"Jazz FM", "A", "", "B"},
                 true,
                 "%Genre%",
                 "/music/Jazz FM/A - B %Date%",
                 {"/music/Jazz FM"}},
      OutputCase{
          "SubfolderOff", {"Jazz FM", "A", "", "B"}, false, "%Genre%", "/music/A - B %Date%", {}},
      // Without a genre the folder template is not even looked at.
      OutputCase{
          "NoGenreFixedFolder", {"", "A", "", "B"}, true, "Fixed", "/music/A - B %Date%", {}},
      OutputCase{"BlankSubfolderDropped",
                 {"  ", "A", "", "B"},
                 true,
                 "%Genre%",
                 "/music/A - B %Date%",
                 {}},
      // Characters no name may hold become "_"; the separator only survives in the folder.
      OutputCase{"SeparatorAndQuestionInTitle",
                 {"Rock/Pop", "A", "", "B/C?"},
                 true,
                 "%Genre%",
                 "/music/Rock/Pop/A - B_C_ %Date%",
                 {"/music/Rock/Pop"}},
      // Only tag placeholders are filled; others stay as written.
      OutputCase{"OtherPlaceholdersStay",
                 {"Jazz FM", "A", "", "B"},
                 true,
                 "%Station%/%Artist% %Temp%",
                 "/music/Jazz FM/A %Temp%/A - B %Date%",
                 {"/music/Jazz FM/A %Temp%"}}};
  for (const OutputCase& c : cases) {
    fakes::FakeFileSystem files;
    files.AddFolder("/music");
    const Settings settings =
        MusicSettings("/music", c.use_subfolder, c.folder_template, "%Artist% - %Title% %Date%");
    EXPECT_EQ(OutputPath(settings, c.tags, files), c.expected) << c.name;
    EXPECT_EQ(files.created(), c.created) << c.name;
  }
}

class OutputPathOnDiskTest : public testing_support::IsolatedHomeTest {};

TEST_F(OutputPathOnDiskTest, CreatesGenreFolderButNoMissingParent) {
  const std::filesystem::path music = Home() / "Music";
  std::filesystem::create_directories(music);
  const Settings settings = MusicSettings(music.string(), true, "%Genre%", "%Title%");
  platform::posix::PosixFileSystem files;
  EXPECT_EQ(OutputPath(settings, {"Jazz FM", "A", "", "B"}, files),
            (music / "Jazz FM" / "B").string());
  EXPECT_TRUE(std::filesystem::is_directory(music / "Jazz FM"));
  EXPECT_EQ(OutputPath(settings, {"Rock/Pop", "A", "", "B"}, files),
            (music / "Rock" / "Pop" / "B").string());
  EXPECT_FALSE(std::filesystem::exists(music / "Rock"));
}

}  // namespace
}  // namespace wavforge

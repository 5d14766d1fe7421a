#include "encoding/output_path.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "fakes/fake_file_system.h"

namespace wavforge {
namespace {

TEST(OutputPathTest, BuildsFolderAndName) {
  // The genre and title (the artist is A), whether subfolders are on, the folder template;
  // the output path and the folder made.
  using Case = std::tuple<const char*, const char*, bool, const char*, const char*, const char*>;
  const Case cases[] = {
      {"Jazz FM", "B", true, "%Genre%", "/music/Jazz FM/A - B %Date%", "/music/Jazz FM"},
      {"Jazz FM", "B", false, "%Genre%", "/music/A - B %Date%", nullptr},
      // Without a genre the folder template is not even looked at.
      {"", "B", true, "Fixed", "/music/A - B %Date%", nullptr},
      {"  ", "B", true, "%Genre%", "/music/A - B %Date%", nullptr},
      // Characters no name may hold become "_"; the separator only survives in the folder.
      {"Rock/Pop", "B/C?", true, "%Genre%", "/music/Rock/Pop/A - B_C_ %Date%", "/music/Rock/Pop"},
      // Only tag placeholders are filled; others stay as written.
      {"Jazz FM", "B", true, "%Station%/%Artist% %Temp%", "/music/Jazz FM/A %Temp%/A - B %Date%",
       "/music/Jazz FM/A %Temp%"},
  };
  for (const auto& [genre, title, use_subfolder, folder_template, expected, made] : cases) {
    Settings settings;
    settings.MusicPath = "/music";
    settings.UseMusicSubfolder = use_subfolder;
    settings.MusicFolderTemplate = folder_template;
    settings.MusicFileTemplate2 = "%Artist% - %Title% %Date%";
    fakes::FakeFileSystem files;
    files.AddFolder("/music");
    EXPECT_EQ(OutputPath(settings, {genre, "A", "", title}, files), expected) << expected;
    EXPECT_EQ(files.created(), made ? std::vector<std::string>{made} : std::vector<std::string>{});
  }
}

}  // namespace
}  // namespace wavforge

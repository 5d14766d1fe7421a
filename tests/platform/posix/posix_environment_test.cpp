#include "platform/posix/posix_environment.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "support/isolated_home.h"

namespace platform::posix {
namespace {

namespace fs = std::filesystem;

class PosixEnvironmentTest : public testing_support::IsolatedHomeTest {
 protected:
  PosixEnvironment environment{"/opt/wavforge"};
};

struct FolderCase {
  int id;
  std::string expected;  // "{home}" stands for HOME, "{root}" for the test's root folder
};

class SpecialFolderTest : public PosixEnvironmentTest,
                          public ::testing::WithParamInterface<FolderCase> {
 protected:
  std::string Resolve(std::string text) const {
    for (const auto& [token, value] :
         {std::pair<std::string, std::string>{"{home}", Home().string()},
          {"{root}", Root().string()}}) {
      if (const auto at = text.find(token); at != std::string::npos) {
        text.replace(at, token.size(), value);
      }
    }
    return text;
  }
};

TEST_P(SpecialFolderTest, FollowsTheUserDirsFileAndTheXdgVariables) {
  testing_support::WriteFile(ConfigHome() / "user-dirs.dirs",
                             "# written by xdg-user-dirs-update\n"
                             "XDG_MUSIC_DIR=\"$HOME/Musik\"\n"
                             "XDG_PICTURES_DIR=\"/srv/pictures/\"\n"
                             "XDG_VIDEOS_DIR=\"relative/not/allowed\"\n"
                             "  XDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n");
  const std::string expected = Resolve(GetParam().expected);
  EXPECT_EQ(environment.SpecialFolderPath(GetParam().id, false), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table, SpecialFolderTest,
    ::testing::Values(FolderCase{13, "{home}/Musik"}, FolderCase{39, "/srv/pictures"},
                      FolderCase{14, "{home}/Videos"}, FolderCase{5, "{home}/Dokumente"},
                      FolderCase{0, "{home}/Desktop"}, FolderCase{26, "{home}/.config"},
                      FolderCase{35, "{root}/usr-share"}, FolderCase{7, ""}));

TEST_F(PosixEnvironmentTest, FallsBackWhenXdgVariablesAreUnset) {
  unsetenv("XDG_CONFIG_HOME");
  unsetenv("XDG_DATA_DIRS");
  EXPECT_EQ(environment.SpecialFolderPath(26, false), (Home() / ".config").string());
  EXPECT_EQ(environment.SpecialFolderPath(35, false), "/usr/local/share");
  setenv("XDG_DATA_DIRS", (Root().string() + "/first/:/second").c_str(), 1);
  EXPECT_EQ(environment.SpecialFolderPath(35, false), Root().string() + "/first");
}

TEST_F(PosixEnvironmentTest, CreateMakesTheFolderAndItsParents) {
  testing_support::WriteFile(ConfigHome() / "user-dirs.dirs", "XDG_MUSIC_DIR=\"$HOME/a/b/c\"\n");
  EXPECT_FALSE(fs::exists(Home() / "a"));
  environment.SpecialFolderPath(13, false);
  EXPECT_FALSE(fs::exists(Home() / "a"));
  EXPECT_EQ(environment.SpecialFolderPath(13, true), (Home() / "a/b/c").string());
  EXPECT_TRUE(fs::is_directory(Home() / "a/b/c"));
}

TEST_F(PosixEnvironmentTest, FindsVariablesByExactNameThenIgnoringCase) {
  setenv("WAVFORGE_Test_Var", "mixed", 1);
  EXPECT_EQ(environment.GetVariable("WAVFORGE_Test_Var"), "mixed");
  EXPECT_EQ(environment.GetVariable("wavforge_test_var"), "mixed");
  setenv("WAVFORGE_TEST_VAR", "upper", 1);
  EXPECT_EQ(environment.GetVariable("WAVFORGE_TEST_VAR"), "upper");
  EXPECT_EQ(environment.GetVariable("WAVFORGE_NO_SUCH"), std::nullopt);
  EXPECT_EQ(environment.GetVariable(""), std::nullopt);
  EXPECT_EQ(environment.GetVariable("A=B"), std::nullopt);
  // Windows names map to their POSIX counterparts when not set themselves.
  EXPECT_EQ(environment.GetVariable("UserProfile"), Home().string());
  environment.SetVariable("USERPROFILE", "/profiles/anna");
  EXPECT_EQ(environment.GetVariable("UserProfile"), "/profiles/anna");
}

TEST(PosixEnvironmentProgramFolder, IsTheFolderOfTheRunningExecutable) {
  const PosixEnvironment environment;
  EXPECT_EQ(environment.ProgramFolder(), fs::read_symlink("/proc/self/exe").parent_path().string());
  EXPECT_EQ(environment.GetVersion() & 0x80000000u, 0u);
}

}  // namespace
}  // namespace platform::posix

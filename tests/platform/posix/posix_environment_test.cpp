#include "platform/posix/posix_environment.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "support/isolated_home.h"

namespace platform::posix {
namespace {

class PosixEnvironmentTest : public testing_support::IsolatedHomeTest {
 protected:
  PosixEnvironment environment{"/opt/wavforge"};
};

TEST_F(PosixEnvironmentTest, SpecialFoldersFollowTheUserDirsFileAndTheXdgVariables) {
  testing_support::WriteFile(ConfigHome() / "user-dirs.dirs",
                             "# written by xdg-user-dirs-update\n"
                             "XDG_MUSIC_DIR=\"$HOME/Musik\"\n"
                             "XDG_PICTURES_DIR=\"/srv/pictures/\"\n"
                             "XDG_VIDEOS_DIR=\"relative/not/allowed\"\n"
                             "  XDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n");
  const std::string home = Home().string();
  const std::pair<int, std::string> cases[] = {
      {13, home + "/Musik"},
      {39, "/srv/pictures"},
      {14, home + "/Videos"},
      {5, home + "/Dokumente"},
      {0, home + "/Desktop"},
      {26, home + "/.config"},
      {35, Root().string() + "/usr-share"},
      {7, ""},
  };
  for (const auto& [id, expected] : cases) {
    EXPECT_EQ(environment.SpecialFolderPath(id, false), expected) << id;
  }
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

}  // namespace
}  // namespace platform::posix

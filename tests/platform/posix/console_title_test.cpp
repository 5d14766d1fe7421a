#include "platform/posix/console_title.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <tuple>

#include "support/isolated_home.h"

namespace platform::posix {
namespace {

namespace fs = std::filesystem;

class ConsoleTitleTest : public testing_support::IsolatedHomeTest {};

TEST_F(ConsoleTitleTest, FolderFollowsTheRuntimeThenTheTemporaryFolder) {
  const std::string uid = std::to_string(geteuid());
  // XDG_RUNTIME_DIR and TMPDIR (nothing: unset), the folder then used.
  const std::tuple<const char*, const char*, std::string> cases[] = {
      {"/run/user/1000", "/var/tmp", "/run/user/1000/wavforge-titles"},
      {nullptr, "/var/tmp", "/var/tmp/wavforge-titles-" + uid},
      {"", "/var/tmp", "/var/tmp/wavforge-titles-" + uid},
      {nullptr, nullptr, "/tmp/wavforge-titles-" + uid},
  };
  for (const auto& [runtime, temp, expected] : cases) {
    runtime ? setenv("XDG_RUNTIME_DIR", runtime, 1) : unsetenv("XDG_RUNTIME_DIR");
    temp ? setenv("TMPDIR", temp, 1) : unsetenv("TMPDIR");
    EXPECT_EQ(ConsoleTitleFolder(), expected);
    EXPECT_EQ(ConsoleTitlePath(4242), expected + "/4242");
  }
}

TEST_F(ConsoleTitleTest, PublishedTitleReadsBackUntilCleared) {
  const pid_t pid = 31337;
  EXPECT_EQ(ReadConsoleTitle(pid), std::nullopt);
  ASSERT_TRUE(PublishConsoleTitle(pid, "Larkspur Encoder"));
  EXPECT_EQ(ReadConsoleTitle(pid), "Larkspur Encoder");
  ASSERT_TRUE(PublishConsoleTitle(pid, "Grüße, \"Titel\" "));
  EXPECT_EQ(ReadConsoleTitle(pid), "Grüße, \"Titel\" ");
  EXPECT_EQ(ReadConsoleTitle(pid + 1), std::nullopt);
  ClearConsoleTitle(pid);
  EXPECT_EQ(ReadConsoleTitle(pid), std::nullopt);
  ClearConsoleTitle(pid);  // clearing twice is harmless
}

TEST_F(ConsoleTitleTest, LeavesOnlyTheTitleFileInAPrivateFolder) {
  ASSERT_TRUE(PublishConsoleTitle(77, "x"));
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(ConsoleTitleFolder())) {
    names.push_back(entry.path().filename().string());
  }
  EXPECT_EQ(names, std::vector<std::string>{"77"});
  const fs::perms perms = fs::status(ConsoleTitleFolder()).permissions();
  EXPECT_EQ(perms & (fs::perms::group_all | fs::perms::others_all), fs::perms::none);
}

TEST_F(ConsoleTitleTest, RefusesAFolderThatIsALink) {
  const fs::path elsewhere = Root() / "elsewhere";
  fs::create_directories(elsewhere);
  fs::create_directory_symlink(elsewhere, ConsoleTitleFolder());
  EXPECT_FALSE(PublishConsoleTitle(5, "Larkspur Encoder"));
  EXPECT_TRUE(fs::is_empty(elsewhere));
}

}  // namespace
}  // namespace platform::posix

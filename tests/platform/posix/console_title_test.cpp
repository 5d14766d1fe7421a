#include "platform/posix/console_title.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <tuple>

#include "support/isolated_home.h"

namespace platform::posix {
namespace {

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

}  // namespace
}  // namespace platform::posix

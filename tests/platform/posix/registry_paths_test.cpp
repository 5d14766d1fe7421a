#include "platform/posix/registry_paths.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <ostream>
#include <string>

#include "support/isolated_home.h"

namespace platform::posix {
namespace {

struct PathsCase {
  std::optional<std::string> home;
  std::optional<std::string> config_home;
  std::optional<std::string> data_dirs;
  std::string user_store;
  std::string machine_store;
};

void PrintTo(const PathsCase& c, std::ostream* out) {
  *out << c.user_store << " " << c.machine_store;
}

class RegistryPathsTest : public testing_support::IsolatedHomeTest,
                          public ::testing::WithParamInterface<PathsCase> {};

void SetOrUnset(const char* name, const std::optional<std::string>& value) {
  if (value) {
    setenv(name, value->c_str(), 1);
  } else {
    unsetenv(name);
  }
}

TEST_P(RegistryPathsTest, FollowsTheXdgFolders) {
  const PathsCase& c = GetParam();
  SetOrUnset("HOME", c.home);
  SetOrUnset("XDG_CONFIG_HOME", c.config_home);
  SetOrUnset("XDG_DATA_DIRS", c.data_dirs);
  const RegistryPaths paths = DefaultRegistryPaths("Larkspur");
  EXPECT_EQ(paths.user_store, c.user_store);
  EXPECT_EQ(paths.machine_store, c.machine_store);
}

INSTANTIATE_TEST_SUITE_P(
    Variables, RegistryPathsTest,
    ::testing::Values(PathsCase{"/home/anna", "/cfg", "/opt/share:/usr/share",
                                "/cfg/Larkspur/registry.sqlite",
                                "/opt/share/Larkspur/registry.sqlite"},
                      PathsCase{"/home/anna", std::nullopt, std::nullopt,
                                "/home/anna/.config/Larkspur/registry.sqlite",
                                "/usr/local/share/Larkspur/registry.sqlite"},
                      // Relative entries are ignored, as are empty list entries.
                      PathsCase{"/home/anna", "rel/cfg", "share::/usr/share",
                                "/home/anna/.config/Larkspur/registry.sqlite",
                                "/usr/share/Larkspur/registry.sqlite"},
                      PathsCase{"/home/anna/", "/cfg//", ":/srv/data/",
                                "/cfg/Larkspur/registry.sqlite",
                                "/srv/data/Larkspur/registry.sqlite"},
                      PathsCase{"/", std::nullopt, "/", "/.config/Larkspur/registry.sqlite",
                                "/Larkspur/registry.sqlite"}));

}  // namespace
}  // namespace platform::posix

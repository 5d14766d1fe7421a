#include "platform/posix/registry_paths.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <tuple>
#include <utility>

#include "support/isolated_home.h"

namespace platform::posix {
namespace {

class RegistryPathsTest : public testing_support::IsolatedHomeTest {};

TEST_F(RegistryPathsTest, FollowTheXdgFolders) {
  // HOME, XDG_CONFIG_HOME and XDG_DATA_DIRS (nothing: unset); the user's and the machine's
  // store then used.
  using Variable = std::optional<std::string>;
  const std::tuple<Variable, Variable, Variable, std::string, std::string> cases[] = {
      {"/home/anna", "/cfg", "/opt/share:/usr/share", "/cfg/Larkspur/registry.sqlite",
       "/opt/share/Larkspur/registry.sqlite"},
      {"/home/anna", std::nullopt, std::nullopt, "/home/anna/.config/Larkspur/registry.sqlite",
       "/usr/local/share/Larkspur/registry.sqlite"},
      // Relative entries are ignored, as are empty list entries.
      {"/home/anna", "rel/cfg", "share::/usr/share", "/home/anna/.config/Larkspur/registry.sqlite",
       "/usr/share/Larkspur/registry.sqlite"},
      {"/home/anna/", "/cfg//", ":/srv/data/", "/cfg/Larkspur/registry.sqlite",
       "/srv/data/Larkspur/registry.sqlite"},
      {"/", std::nullopt, "/", "/.config/Larkspur/registry.sqlite", "/Larkspur/registry.sqlite"},
  };
  for (const auto& [home, config_home, data_dirs, user_store, machine_store] : cases) {
    for (const auto& [name, value] : {std::pair{"HOME", home},
                                      {"XDG_CONFIG_HOME", config_home},
                                      {"XDG_DATA_DIRS", data_dirs}}) {
      value ? setenv(name, value->c_str(), 1) : unsetenv(name);
    }
    const RegistryPaths paths = DefaultRegistryPaths("Larkspur");
    EXPECT_EQ(paths.user_store, user_store);
    EXPECT_EQ(paths.machine_store, machine_store);
  }
}

}  // namespace
}  // namespace platform::posix

#include "support/process_isolation.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace testing_support {

std::filesystem::path IsolateProcess() {
  std::string pattern = std::filesystem::temp_directory_path().string() + "/wavforge-tests-XXXXXX";
  if (!mkdtemp(pattern.data())) throw std::runtime_error("cannot make a temporary folder");
  const std::filesystem::path root = pattern;
  std::filesystem::create_directories(root / "home");
  std::filesystem::create_directories(root / "tmp");
  setenv("HOME", (root / "home").c_str(), 1);
  setenv("XDG_CONFIG_HOME", (root / "home/.config").c_str(), 1);
  setenv("XDG_DATA_HOME", (root / "home/.local/share").c_str(), 1);
  setenv("XDG_CACHE_HOME", (root / "home/.cache").c_str(), 1);
  setenv("XDG_STATE_HOME", (root / "home/.local/state").c_str(), 1);
  setenv("XDG_DATA_DIRS", (root / "usr-share").c_str(), 1);
  setenv("XDG_CONFIG_DIRS", (root / "etc-xdg").c_str(), 1);
  setenv("TMPDIR", (root / "tmp").c_str(), 1);
  std::filesystem::create_directories(root / "run");
  std::filesystem::permissions(root / "run", std::filesystem::perms::owner_all);
  setenv("XDG_RUNTIME_DIR", (root / "run").c_str(), 1);
  return root;
}

}  // namespace testing_support

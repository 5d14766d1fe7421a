#include "support/process_isolation.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace testing_support {

const char* const kIsolatedVariables[17] = {
    "HOME",
    "XDG_CONFIG_HOME",
    "XDG_DATA_HOME",
    "XDG_CACHE_HOME",
    "XDG_STATE_HOME",
    "XDG_DATA_DIRS",
    "XDG_CONFIG_DIRS",
    "XDG_RUNTIME_DIR",
    "TMPDIR",
    "TEMP",
    "TMP",
    "XDG_MUSIC_DIR",
    "XDG_DESKTOP_DIR",
    "XDG_DOCUMENTS_DIR",
    "XDG_PICTURES_DIR",
    "XDG_VIDEOS_DIR",
    "USERPROFILE",
};

void PointEnvironmentAt(const std::filesystem::path& root) {
  namespace fs = std::filesystem;
  for (const char* name : kIsolatedVariables) unsetenv(name);
  const std::pair<const char*, fs::path> folders[] = {
      {"HOME", root / "home"},
      {"XDG_CONFIG_HOME", root / "home/.config"},
      {"XDG_DATA_HOME", root / "home/.local/share"},
      {"XDG_CACHE_HOME", root / "home/.cache"},
      {"XDG_STATE_HOME", root / "home/.local/state"},
      {"XDG_DATA_DIRS", root / "usr-share"},
      {"XDG_CONFIG_DIRS", root / "etc-xdg"},
      {"XDG_RUNTIME_DIR", root / "run"},
      {"TMPDIR", root / "tmp"},
  };
  for (const auto& [name, folder] : folders) setenv(name, folder.c_str(), 1);
  fs::create_directories(root / "home");
  fs::create_directories(root / "tmp");
  fs::create_directories(root / "run");
  fs::permissions(root / "run", fs::perms::owner_all);
}

std::filesystem::path IsolateProcess(const std::string& prefix) {
  std::string pattern = std::filesystem::temp_directory_path().string() + "/" + prefix + "XXXXXX";
  if (!mkdtemp(pattern.data())) throw std::runtime_error("cannot make a temporary folder");
  PointEnvironmentAt(pattern);
  return pattern;
}

}  // namespace testing_support

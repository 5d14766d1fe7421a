#include "support/isolated_home.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace testing_support {
namespace {

const char* const kIsolatedVariables[] = {
    "HOME",
    "XDG_CONFIG_HOME",
    "XDG_DATA_HOME",
    "XDG_CACHE_HOME",
    "XDG_STATE_HOME",
    "XDG_DATA_DIRS",
    "XDG_CONFIG_DIRS",
    "TMPDIR",
    "TEMP",
    "TMP",
    "XDG_MUSIC_DIR",
    "XDG_DESKTOP_DIR",
    "XDG_DOCUMENTS_DIR",
    "XDG_PICTURES_DIR",
    "XDG_VIDEOS_DIR",
    "USERPROFILE",
    "XDG_RUNTIME_DIR",
};

}  // namespace

std::filesystem::path MakeTempFolder(const std::string& prefix) {
  const char* tmp = std::getenv("TMPDIR");
  std::string pattern = std::string(tmp ? tmp : "/tmp") + "/" + prefix + "XXXXXX";
  if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed for " + pattern);
  return pattern;
}

void IsolatedHomeTest::SetUp() {
  root_ = MakeTempFolder("home-");
  for (const char* name : kIsolatedVariables) {
    const char* value = std::getenv(name);
    saved_[name] = value ? std::optional<std::string>(value) : std::nullopt;
    unsetenv(name);
  }
  std::filesystem::create_directories(Home());
  std::filesystem::create_directories(TempFolder());
  setenv("HOME", Home().c_str(), 1);
  setenv("XDG_CONFIG_HOME", ConfigHome().c_str(), 1);
  setenv("XDG_DATA_HOME", (Home() / ".local/share").c_str(), 1);
  setenv("XDG_CACHE_HOME", (Home() / ".cache").c_str(), 1);
  setenv("XDG_STATE_HOME", (Home() / ".local/state").c_str(), 1);
  setenv("XDG_DATA_DIRS", MachineData().c_str(), 1);
  setenv("XDG_CONFIG_DIRS", (root_ / "etc-xdg").c_str(), 1);
  setenv("TMPDIR", TempFolder().c_str(), 1);
  std::filesystem::create_directories(root_ / "run");
  std::filesystem::permissions(root_ / "run", std::filesystem::perms::owner_all);
  setenv("XDG_RUNTIME_DIR", (root_ / "run").c_str(), 1);
}

void IsolatedHomeTest::TearDown() {
  for (const auto& [name, value] : saved_) {
    if (value) {
      setenv(name.c_str(), value->c_str(), 1);
    } else {
      unsetenv(name.c_str());
    }
  }
  std::error_code ignored;
  std::filesystem::remove_all(root_, ignored);
}

void WriteFile(const std::filesystem::path& path, const std::string& bytes) {
  if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path());
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << bytes;
  if (!out) throw std::runtime_error("cannot write " + path.string());
}

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

}  // namespace testing_support

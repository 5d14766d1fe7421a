#include "bench/isolated_bench_home.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace wavforge::bench {
namespace {

namespace fs = std::filesystem;

// Variables that could lead the program to the user's own folders.
constexpr const char* kCleared[] = {"TEMP",
                                    "TMP",
                                    "XDG_MUSIC_DIR",
                                    "XDG_DESKTOP_DIR",
                                    "XDG_DOCUMENTS_DIR",
                                    "XDG_PICTURES_DIR",
                                    "XDG_VIDEOS_DIR",
                                    "USERPROFILE"};

}  // namespace

IsolatedBenchHome::IsolatedBenchHome() {
  const char* tmp = std::getenv("TMPDIR");
  std::string pattern = std::string(tmp && *tmp ? tmp : "/tmp") + "/wavforge-bench-XXXXXX";
  if (!mkdtemp(pattern.data())) throw std::runtime_error("cannot make " + pattern);
  root_ = pattern;
  for (const char* name : kCleared) unsetenv(name);
  const std::pair<const char*, std::string> variables[] = {
      {"HOME", Home()},
      {"XDG_CONFIG_HOME", ConfigHome()},
      {"XDG_DATA_HOME", Home() + "/.local/share"},
      {"XDG_CACHE_HOME", Home() + "/.cache"},
      {"XDG_STATE_HOME", Home() + "/.local/state"},
      {"XDG_DATA_DIRS", root_ + "/usr-share"},
      {"XDG_CONFIG_DIRS", root_ + "/etc-xdg"},
      {"XDG_RUNTIME_DIR", root_ + "/run"},
      {"TMPDIR", Temp()},
  };
  for (const auto& [name, value] : variables) {
    fs::create_directories(value);
    setenv(name, value.c_str(), 1);
  }
  fs::permissions(root_ + "/run", fs::perms::owner_all);
}

IsolatedBenchHome::~IsolatedBenchHome() {
  std::error_code ignored;
  fs::remove_all(root_, ignored);
}

}  // namespace wavforge::bench

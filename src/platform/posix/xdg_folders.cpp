#include "platform/posix/xdg_folders.h"

#include <cstdlib>
#include <fstream>
#include <string_view>

namespace platform::posix {
namespace {

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::string Home() {
  return Variable("HOME");
}

std::string ConfigHome() {
  const std::string config = Variable("XDG_CONFIG_HOME");
  return config.empty() ? Home() + "/.config" : config;
}

// Reads one entry of user-dirs.dirs, written as XDG_MUSIC_DIR="$HOME/Music" or as an
// absolute path; "" when the file or the entry is missing.
std::string UserDir(std::string_view key) {
  std::ifstream file(ConfigHome() + "/user-dirs.dirs");
  std::string line;
  while (std::getline(file, line)) {
    const auto start = line.find_first_not_of(" \t");
    if (start == std::string::npos || line[start] == '#') continue;
    std::string_view entry(line);
    entry.remove_prefix(start);
    if (!entry.starts_with(key) || entry.substr(key.size(), 1) != "=") continue;
    std::string_view value = entry.substr(key.size() + 1);
    if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
      value = value.substr(1, value.size() - 2);
    }
    if (value.starts_with("$HOME")) return Home() + std::string(value.substr(5));
    if (value.starts_with("/")) return std::string(value);
    return {};
  }
  return {};
}

std::string UserDirOr(std::string_view key, const char* fallback) {
  const std::string folder = UserDir(key);
  return folder.empty() ? Home() + "/" + fallback : folder;
}

std::string FirstDataDir() {
  const std::string dirs = Variable("XDG_DATA_DIRS");
  const std::string first = dirs.substr(0, dirs.find(':'));
  return first.empty() ? "/usr/local/share" : first;
}

std::string FolderFor(int folder_id) {
  switch (folder_id) {
    case 0:
      return UserDirOr("XDG_DESKTOP_DIR", "Desktop");
    case 5:
      return UserDirOr("XDG_DOCUMENTS_DIR", "Documents");
    case 13:
      return UserDirOr("XDG_MUSIC_DIR", "Music");
    case 14:
      return UserDirOr("XDG_VIDEOS_DIR", "Videos");
    case 39:
      return UserDirOr("XDG_PICTURES_DIR", "Pictures");
    case 26:
      return ConfigHome();
    case 35:
      return FirstDataDir();
    default:
      return {};
  }
}

}  // namespace

std::string XdgFolderFor(int folder_id) {
  std::string folder = FolderFor(folder_id);
  while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  return folder;
}

}  // namespace platform::posix

#include "platform/posix/registry_paths.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace platform::posix {
namespace {

constexpr const char* kStoreFileName = "registry.sqlite";

std::string WithoutTrailingSlashes(std::string path) {
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

std::string AbsoluteOrEmpty(std::string_view path) {
  return !path.empty() && path.front() == '/' ? WithoutTrailingSlashes(std::string(path))
                                              : std::string();
}

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::string HomeFolder() {
  std::string home = AbsoluteOrEmpty(Variable("HOME"));
  if (!home.empty()) return home;
  // No usable HOME (a service, say): the account's home from the user database.
  long size = sysconf(_SC_GETPW_R_SIZE_MAX);
  std::vector<char> buffer(size > 0 ? static_cast<std::size_t>(size) : 16384);
  passwd entry{};
  passwd* found = nullptr;
  if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found) {
    home = AbsoluteOrEmpty(found->pw_dir);
  }
  return home.empty() ? "/" : home;
}

std::string FirstDataFolder() {
  const std::string dirs = Variable("XDG_DATA_DIRS");
  std::size_t start = 0;
  while (start <= dirs.size()) {
    const std::size_t end = std::min(dirs.find(':', start), dirs.size());
    const std::string folder = AbsoluteOrEmpty(std::string_view(dirs).substr(start, end - start));
    if (!folder.empty()) return folder;
    start = end + 1;
  }
  return "/usr/local/share";
}

std::string JoinPath(const std::string& folder, const std::string& name) {
  return folder == "/" ? folder + name : folder + "/" + name;
}

}  // namespace

RegistryPaths DefaultRegistryPaths(const std::string& folder_name) {
  std::string config = AbsoluteOrEmpty(Variable("XDG_CONFIG_HOME"));
  if (config.empty()) config = JoinPath(HomeFolder(), ".config");
  return {JoinPath(JoinPath(config, folder_name), kStoreFileName),
          JoinPath(JoinPath(FirstDataFolder(), folder_name), kStoreFileName)};
}

}  // namespace platform::posix

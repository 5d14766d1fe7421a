#include "cmd/file_name_lookup.h"

#include <dirent.h>
#include <sys/stat.h>

#include <cerrno>

#include "cmd/variable_lookup.h"
#include "platform/path_rules.h"

namespace wavforge::cmd {

std::optional<std::string> FindFileIgnoringCase(const std::string& path) {
  struct stat info {};
  // Anything but "no such name" (no permission, say) is left for the command to report.
  if (lstat(path.c_str(), &info) == 0 || errno != ENOENT) return path;
  const std::size_t slash = path.rfind(platform::kPathSeparator);
  const std::string folder = slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
  const std::string wanted = path.substr(folder.size());
  DIR* listing = opendir(folder.empty() ? "." : folder.c_str());
  if (!listing) return std::nullopt;
  std::optional<std::string> found;
  bool several = false;
  while (const dirent* entry = readdir(listing)) {
    if (!EqualsIgnoringCase(entry->d_name, wanted)) continue;
    several = found.has_value();
    if (several) break;
    found = folder + entry->d_name;
  }
  closedir(listing);
  return several ? std::nullopt : found;
}

}  // namespace wavforge::cmd

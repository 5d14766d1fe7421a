#include "encoding/delete_reach.h"

#include "platform/path_rules.h"
#include "settings/text_replace.h"

namespace wavforge {
namespace {

std::string_view FolderOf(std::string_view path) {
  const auto slash = path.rfind(platform::kPathSeparator);
  return slash == std::string_view::npos ? std::string_view() : path.substr(0, slash + 1);
}

}  // namespace

bool DeleteLineReaches(std::string_view base_path, std::string_view path) {
  const std::string_view folder = FolderOf(base_path);
  if (FolderOf(path) != folder) return false;
  const std::string base = ToLowerAscii(base_path.substr(folder.size()));
  const std::string name = ToLowerAscii(path.substr(folder.size()));
  if (name == base) return true;
  return name.size() > base.size() && name.compare(0, base.size(), base) == 0 &&
         name[base.size()] == '.';
}

}  // namespace wavforge

#include "shell/tool_path.h"

#include "platform/path_rules.h"
#include "settings/placeholders.h"
#include "settings/product.h"
#include "settings/system_info.h"
#include "settings/text_replace.h"

namespace wavforge {

void AddToolFolderToPath(const platform::Ports& ports) {
  const std::string path = ExpandPlaceholders("%Path%", ports);
  const std::string tools =
      GetSpecialFolder(ports.environment, 0, kCommonAppDataFolder, true, false) +
      platform::kPathSeparator + kProductName;
  if (ToLowerAscii(path).find(ToLowerAscii(tools)) == std::string::npos) {
    ports.environment.SetVariable("Path", path + platform::kPathListSeparator + tools);
  }
}

}  // namespace wavforge

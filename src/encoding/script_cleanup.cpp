#include "encoding/script_cleanup.h"

#include "platform/path_rules.h"
#include "settings/text_replace.h"

namespace wavforge {

void DeleteBatchFiles(const Settings& settings, platform::FileSystem& files) {
  for (const auto& name : files.ListFiles(settings.TempPath)) {
    // "*.bat" matches the way the Windows file system does: the extension in any case.
    if (name.size() >= 4 && ToLowerAscii(name.substr(name.size() - 4)) == ".bat") {
      files.DeleteFile(settings.TempPath + platform::kPathSeparator + name);
    }
  }
}

}  // namespace wavforge

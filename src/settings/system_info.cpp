#include "settings/system_info.h"

#include "settings/path_tools.h"

namespace wavforge {

std::string GetSpecialFolder(platform::Environment& environment, long /*owner*/, int folder_id,
                             bool create, bool /*verify*/) {
  return TrimAtNul(environment.SpecialFolderPath(folder_id, create));
}

bool IsWindowsNT(const platform::Environment& environment) {
  return (environment.GetVersion() & 0x80000000u) == 0;
}

}  // namespace wavforge

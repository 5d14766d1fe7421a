#include "assistant/page_folder.h"

#include "platform/path_rules.h"

namespace wavforge {

std::string ChoosePageFolder(const platform::FileSystem& files, const std::string& program_folder,
                             const std::string& major, const std::string& language) {
  const std::string base = program_folder + platform::kPathSeparator;
  for (const std::string& folder :
       {"HTML" + major, "Help" + major, std::string("HTML"), std::string("Help")}) {
    const std::string candidate = base + folder + platform::kPathSeparator + language;
    if (files.PathExists(candidate)) return candidate + platform::kPathSeparator;
  }
  return base;
}

}  // namespace wavforge

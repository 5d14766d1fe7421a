#include "encoding/output_path.h"

#include "encoding/tag_placeholders.h"
#include "platform/path_rules.h"
#include "settings/path_tools.h"

namespace wavforge {

std::string OutputPath(const Settings& settings, const TrackTags& tags,
                       platform::FileSystem& files) {
  const std::string name = CleanFileName(ExpandTagPlaceholders(settings.MusicFileTemplate2, tags));
  std::string subfolder;
  if (!tags.Genre.empty() && settings.UseMusicSubfolder) {
    subfolder = CleanPathChars(ExpandTagPlaceholders(settings.MusicFolderTemplate, tags));
    if (!subfolder.empty()) {
      subfolder.insert(subfolder.begin(), platform::kPathSeparator);
      files.CreateFolder(settings.MusicPath + subfolder);
    }
  }
  return settings.MusicPath + subfolder + platform::kPathSeparator + name;
}

}  // namespace wavforge

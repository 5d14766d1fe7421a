#pragma once

#include <string>

#include "encoding/track_tags.h"
#include "platform/file_system.h"
#include "settings/settings.h"

namespace wavforge {

// Where the encoder writes a track, without extension: MusicPath, then - when the track has a
// genre and UseMusicSubfolder is on - the cleaned MusicFolderTemplate as a subfolder, then the
// cleaned MusicFileTemplate2 as the name. The subfolder's last level is created on the way;
// failures are ignored and show up in the encoder's own output.
std::string OutputPath(const Settings& settings, const TrackTags& tags,
                       platform::FileSystem& files);

}  // namespace wavforge

#pragma once

#include "platform/file_system.h"
#include "settings/settings.h"

namespace wavforge {

// Deletes every "*.bat" in the TempPath folder, not only the program's own scripts, as the
// main window does when it closes. Errors are ignored; running tools are left alone.
void DeleteBatchFiles(const Settings& settings, platform::FileSystem& files);

}  // namespace wavforge

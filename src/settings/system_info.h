#pragma once

#include <string>

#include "platform/environment.h"

namespace wavforge {

// Windows special-folder numbers the program uses.
enum SpecialFolder : int {
  kDesktopFolder = 0,
  kDocumentsFolder = 5,
  kMusicFolder = 13,
  kVideosFolder = 14,
  kAppDataFolder = 26,
  kCommonAppDataFolder = 35,
  kPicturesFolder = 39,
};

// The folder of a special-folder number, without a trailing separator. Every caller passes
// owner 0, create true and verify false; the platform needs neither owner nor verify.
std::string GetSpecialFolder(platform::Environment& environment, long owner, int folder_id,
                             bool create, bool verify);

// True on the NT family, which is what every supported platform reports.
bool IsWindowsNT(const platform::Environment& environment);

}  // namespace wavforge

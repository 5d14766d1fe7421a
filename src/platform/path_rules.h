#pragma once

// Every place that joins or splits paths uses these, so the Windows-shaped logic of the
// program keeps working with the separators of the platform it runs on.
namespace platform {

inline constexpr char kPathSeparator = '/';
// The slash a name cleaner must replace because it is not this platform's separator.
inline constexpr char kOtherSlash = '\\';
inline constexpr const char* kExecutableSuffix = "";
inline constexpr char kPathListSeparator = ':';

}  // namespace platform

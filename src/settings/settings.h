#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace wavforge {

// Output formats by their index, which is also the value of the Encoder setting.
enum FormatIndex : int { kWav44 = 0, kMp3 = 1, kOggVorbis = 2, kWma44 = 3, kWma48 = 4, kWav48 = 5 };
inline constexpr int kFormatCount = 6;

struct EncoderProfile {
  std::string format_name;              // the fix-file key of the format
  std::string command;                  // command template; %1, %2, ... are filled per file
  std::vector<std::string> parameters;  // alternative parameter sets (compressed formats)
  std::int16_t quality = 0;             // index into parameters
};

// Every setting of the program, named after its INI key.
struct Settings {
  Settings();

  std::string SettingsFile;
  std::string Language;
  bool LogToFile = false;
  std::string TempPath;
  std::string MusicPath;
  std::string LogFilePath;
  bool UseMusicSubfolder = false;
  std::string MusicFolderTemplate;
  std::string MusicFileTemplate2;
  bool Normalize = false;
  bool DelTemp = false;
  std::int16_t Encoder = 0;
  // An update check at start-up when the last one asked for the next (off unless set).
  bool AutoUpdateCheck = false;
  std::string NormalizeCommand;
  std::array<EncoderProfile, kFormatCount> Profiles;
};

// The fix-file key of each format, by format index.
inline constexpr std::array<const char*, kFormatCount> kFormatNames = {
    "WAV44", "MP3", "OggVorbis", "WMA44", "WMA48", "WAV48"};

}  // namespace wavforge

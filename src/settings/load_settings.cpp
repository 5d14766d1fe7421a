#include "settings/load_settings.h"

#include <limits>
#include <string>

#include "platform/path_rules.h"
#include "settings/placeholders.h"
#include "settings/product.h"
#include "settings/profile_values.h"
#include "settings/system_info.h"
#include "settings/text_replace.h"

namespace wavforge {
namespace {

const std::string kSeparator(1, platform::kPathSeparator);

// Numbers from the files are 16-bit: one that does not fit leaves the field as it was.
void StoreInt16(std::int16_t& field, std::int64_t value) {
  if (value >= std::numeric_limits<std::int16_t>::min() &&
      value <= std::numeric_limits<std::int16_t>::max()) {
    field = static_cast<std::int16_t>(value);
  }
}

}  // namespace

void SettingsLoader::LoadSettings(Settings& settings, const DelTempShown& show_del_temp) {
  auto& environment = ports_.environment;
  const auto& profiles = ports_.profiles;
  const std::string product = kProductName;
  const std::string program_folder = environment.ProgramFolder();

  const std::string fix_file = program_folder + kSeparator + product + "Fix.ini";

  const std::string seed_file = program_folder + kSeparator + product + ".ini";
  if (IsWindowsNT(environment)) {
    const std::string folder =
        GetSpecialFolder(environment, 0, kAppDataFolder, true, false) + kSeparator + product;
    settings.SettingsFile = folder + kSeparator + product + ".ini";
    const auto size = ports_.files.FileSize(settings.SettingsFile).value_or(0);
    ports_.files.CreatePrivateFolder(folder);  // settings, logs and registry: the user's own
    // An empty per-user file is as good as none: the seed replaces it.
    if (size == 0) ports_.files.CopyFile(seed_file, settings.SettingsFile);
  } else {
    settings.SettingsFile = seed_file;
  }
  const std::string& settings_file = settings.SettingsFile;

  const auto fix_text = [&](const char* section, const char* key, std::size_t capacity) {
    return GetProfileText(profiles, fix_file, section, key, "", capacity);
  };
  settings.NormalizeCommand = fix_text("Encode", "Normalize", kSettingTextCapacity);
  for (const int format : {kWav44, kWav48, kWma44, kWma48, kMp3, kOggVorbis}) {
    auto& profile = settings.Profiles[format];
    profile.command = fix_text("Encode", kFormatNames[format], kSettingTextCapacity);
  }
  for (const int format : {kMp3, kOggVorbis, kWma44, kWma48}) {
    auto& profile = settings.Profiles[format];
    profile.parameters =
        SplitList(fix_text("EncParams", kFormatNames[format], kParameterListCapacity), ';');
  }

  const auto text = [&](const char* section, const char* key, const std::string& fallback) {
    return GetProfileText(profiles, settings_file, section, key, fallback, kSettingTextCapacity);
  };
  const auto number = [&](const char* section, const char* key, std::int64_t fallback) {
    return GetProfileNumber(profiles, settings_file, section, key, fallback);
  };
  const auto path = [&](const char* key, const std::string& fallback) {
    return ExpandPlaceholders(text("Options", key, fallback), ports_);
  };

  settings.LogToFile = number("General", "LogToFile", 1) != 0;
  settings.Language = text("General", "Language", "");

  settings.TempPath = path("TempPath", "%Temp%");
  settings.MusicPath = path("MusicPath", "%MyMusic%");
  // The placeholder survives only when the music folder could not be looked up at all.
  if (ToLowerAscii(settings.MusicPath) == "%mymusic%") {
    settings.MusicPath = GetSpecialFolder(environment, 0, kDesktopFolder, true, false);
  }
  settings.LogFilePath = path("LogFilePath", "%AppData%" + kSeparator + product);
  settings.UseMusicSubfolder = number("Options", "UseMusicSubfolder", 1) != 0;
  settings.MusicFolderTemplate = text("Options", "MusicFolderTemplate", "%Genre%");
  settings.MusicFileTemplate2 = text("Options", "MusicFileTemplate2", "%Artist% - %Title%");
  settings.Normalize = number("Options", "Normalize", 0) != 0;
  // Later loads keep what the user set with the check box since.
  if (!first_run_done_) {
    settings.DelTemp = number("Options", "DelTemp", 1) != 0;
    if (show_del_temp) show_del_temp(settings.DelTemp);
  }
  StoreInt16(settings.Profiles[kMp3].quality, number("Options", "MP3Quality", 5));
  StoreInt16(settings.Profiles[kOggVorbis].quality, number("Options", "OggVorbisQuality", 5));
  StoreInt16(settings.Profiles[kWma44].quality, number("Options", "WMA44Quality", 2));
  StoreInt16(settings.Profiles[kWma48].quality, number("Options", "WMA48Quality", 2));
  StoreInt16(settings.Encoder, number("Options", "Encoder", 0));
  settings.AutoUpdateCheck = number("Options", "AutoUpdateCheck", 0) != 0;

  first_run_done_ = true;
}

}  // namespace wavforge

#include "cli/settings_command.h"

#include "settings/load_settings.h"

namespace wavforge::cli {

void PrintSettings(const Settings& s, std::ostream& out) {
  const auto& p = s.Profiles;
  out << "SettingsFile=" << s.SettingsFile << '\n'
      << "[General]\n"
      << "LogToFile=" << int{s.LogToFile} << '\n'
      << "Language=" << s.Language << '\n'
      << "[Options]\n"
      << "TempPath=" << s.TempPath << '\n'
      << "MusicPath=" << s.MusicPath << '\n'
      << "LogFilePath=" << s.LogFilePath << '\n'
      << "UseMusicSubfolder=" << int{s.UseMusicSubfolder} << '\n'
      << "MusicFolderTemplate=" << s.MusicFolderTemplate << '\n'
      << "MusicFileTemplate2=" << s.MusicFileTemplate2 << '\n'
      << "Normalize=" << int{s.Normalize} << '\n'
      << "DelTemp=" << int{s.DelTemp} << '\n'
      << "MP3Quality=" << p[kMp3].quality << '\n'
      << "OggVorbisQuality=" << p[kOggVorbis].quality << '\n'
      << "WMA44Quality=" << p[kWma44].quality << '\n'
      << "WMA48Quality=" << p[kWma48].quality << '\n'
      << "Encoder=" << s.Encoder << '\n'
      << "AutoUpdateCheck=" << int{s.AutoUpdateCheck} << '\n'
      << "[Encode]\n"
      << "Normalize=" << s.NormalizeCommand << '\n';
  for (const int format : {kWav44, kMp3, kOggVorbis, kWma44, kWma48, kWav48}) {
    out << p[format].format_name << '=' << p[format].command << '\n';
  }
  out << "[EncParams]\n";
  for (const int format : {kMp3, kOggVorbis, kWma44, kWma48}) {
    for (std::size_t i = 0; i < p[format].parameters.size(); ++i) {
      out << p[format].format_name << '.' << i << '=' << p[format].parameters[i] << '\n';
    }
  }
}

int RunSettings(const platform::Ports& ports, std::ostream& out) {
  Settings settings;
  SettingsLoader loader(ports);
  loader.LoadSettings(settings);
  PrintSettings(settings, out);
  return 0;
}

}  // namespace wavforge::cli

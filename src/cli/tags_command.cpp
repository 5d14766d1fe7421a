#include "cli/tags_command.h"

#include "cli/dry_run_ports.h"
#include "encoding/output_path.h"
#include "encoding/read_wav_tags.h"
#include "encoding/source_names.h"
#include "settings/load_settings.h"

namespace wavforge::cli {

int RunTags(const platform::Ports& ports, const std::vector<std::string>& files, std::ostream& out,
            std::ostream& err) {
  Settings settings;
  SettingsLoader loader(ports);
  loader.LoadSettings(settings);
  DryRunFileSystem no_folders(ports.files);
  int exit_code = 0;
  for (const auto& file : files) {
    if (!ports.binary_files.OpenForReading(file)) {
      err << "wavforge-cli: " << file << " does not exist or cannot be read\n";
      exit_code = 1;
      continue;
    }
    std::string genre, artist, album, title;
    const bool info_read = ReadWavTags(ports.binary_files, file, {"IGNR", "IART", "IALB", "INAM"},
                                       {&genre, &artist, &album, &title});
    const TrackTags tags = ReadTagsWithNameFallback(ports.binary_files, file);
    out << "File=" << file << '\n'
        << "InfoRead=" << int{info_read} << '\n'
        << "Genre=" << tags.Genre << '\n'
        << "Artist=" << tags.Artist << '\n'
        << "Album=" << tags.Album << '\n'
        << "Title=" << tags.Title << '\n'
        << "BasePath=" << BasePath(file) << '\n'
        << "FileTitle=" << FileTitle(file) << '\n'
        << "OutputPath=" << OutputPath(settings, tags, no_folders) << '\n';
  }
  return exit_code;
}

}  // namespace wavforge::cli

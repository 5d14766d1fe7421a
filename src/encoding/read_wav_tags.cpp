#include "encoding/read_wav_tags.h"

#include "encoding/riff_reader.h"
#include "encoding/source_names.h"
#include "encoding/tag_text.h"

namespace wavforge {

bool ReadWavTags(platform::BinaryFileOpener& files, const std::string& FileName,
                 const std::vector<std::string>& Ids, const std::vector<std::string*>& Values) {
  const auto file = files.OpenForReading(FileName);
  if (!file) return false;
  RiffReader reader(*file);
  if (!reader.FindInfoList()) return false;
  for (std::size_t i = 0; i < Ids.size(); ++i) {
    const auto text = reader.ReadInfoText(MakeChunkId(Ids[i]));
    if (!text) return false;
    if (i < Values.size() && Values[i]) *Values[i] = DecodeTagText(*text);
  }
  return true;
}

TrackTags ReadTagsWithNameFallback(platform::BinaryFileOpener& files,
                                   const std::string& source_path) {
  TrackTags tags;
  const bool ok = ReadWavTags(files, source_path, {"IGNR", "IART", "IALB", "INAM"},
                              {&tags.Genre, &tags.Artist, &tags.Album, &tags.Title});
  if (!ok || tags.Artist.empty() || tags.Title.empty()) {
    const std::string title = FileTitle(source_path);
    constexpr std::string_view kDivider = " - ";
    const auto divider = title.find(kDivider);
    if (divider != std::string::npos) {
      tags.Artist = title.substr(0, divider);
      tags.Title = title.substr(divider + kDivider.size());
    }
  }
  return tags;
}

}  // namespace wavforge

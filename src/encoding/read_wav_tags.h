#pragma once

#include <string>
#include <vector>

#include "encoding/track_tags.h"
#include "platform/binary_file.h"

namespace wavforge {

// Reads texts of the INFO list of a WAV file: Values[i] receives the text of the chunk Ids[i]
// (cut or padded with spaces to four characters). Each id is searched from the start of the
// list, so their order in the file does not matter. True only when every id was found and
// read; the first missing or empty chunk ends the reading, and texts stored before it stay.
// Nothing changes when the file cannot be opened. A null or missing entry of Values still
// has its id searched but stores nothing.
bool ReadWavTags(platform::BinaryFileOpener& files, const std::string& FileName,
                 const std::vector<std::string>& Ids, const std::vector<std::string*>& Values);

// The tags of a source recording: genre, artist, album and title from its INFO list, and when
// that fails or leaves the artist or title empty, artist and title from a file name shaped
// "Artist - Title" (the first " - " divides them; a name without one changes nothing).
TrackTags ReadTagsWithNameFallback(platform::BinaryFileOpener& files,
                                   const std::string& source_path);

}  // namespace wavforge

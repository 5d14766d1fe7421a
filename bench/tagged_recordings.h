#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace wavforge::bench {

struct TaggedRecording {
  std::string path;
  std::string title;  // the INAM text, to check that a job read the tags
};

// Writes count tagged recordings into folder, each a data chunk of data_bytes that is only
// declared (a hole in the file) followed by its INFO list: genre from a handful, artist,
// album and a title unique to the file. Throws when a file cannot be written.
std::vector<TaggedRecording> MakeTaggedRecordings(const std::string& folder, std::size_t count,
                                                  std::uint64_t data_bytes);

}  // namespace wavforge::bench

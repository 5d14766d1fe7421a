#pragma once

#include <string>

namespace wavforge {

// The tags of the recording being processed, as read from its INFO list or its name.
struct TrackTags {
  std::string Genre;   // "IGNR"; also what "%Station%" stands for
  std::string Artist;  // "IART"
  std::string Album;   // "IALB"
  std::string Title;   // "INAM"
};

}  // namespace wavforge

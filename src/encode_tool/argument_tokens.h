#pragma once

#include <string>
#include <vector>

#include "encoding/track_tags.h"

namespace wavforge::encode_tool {

// The encoder's arguments with {in}, {out}, {artist}, {title}, {album} and {genre} replaced,
// anywhere inside an argument, in one pass: a tag that itself reads "{title}" stays as it is.
// Each argument reaches the encoder as one argument, whatever the tag holds.
std::vector<std::string> FillArguments(const std::vector<std::string>& arguments,
                                       const std::string& input, const std::string& output,
                                       const TrackTags& tags);

}  // namespace wavforge::encode_tool

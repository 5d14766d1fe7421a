#pragma once

#include <string>

#include "platform/binary_file.h"

namespace wavforge::encode_tool {

// Gives a normalised recording the INFO list of the original, which normalisers such as sox
// drop: the normalised file takes the recording's place, and without the list the recording
// would lose its tags for good and the encoder after it would name its output from nothing.
// The list is appended to the normalised file (whose own list, if it has one, is kept).
// "" when done or when there is nothing to carry, otherwise why not, for the log.
std::string CarryInfoList(platform::BinaryFileOpener& files, const std::string& original,
                          const std::string& normalised);

}  // namespace wavforge::encode_tool

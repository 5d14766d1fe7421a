#pragma once

#include <optional>
#include <string_view>

#include "platform/binary_file.h"

namespace wavforge {

// How long a WAV, MP3, Ogg Vorbis or WMA file plays, in seconds, read from its container
// without decoding any audio. Nothing when the file is cut short (a header that promises
// more than the file holds, a frame or page that runs past its end, an Ogg stream without its
// last page) or is not a file of that kind. For a WAV source whose header claims more than
// it holds, allow_short_wav counts what is there instead.
std::optional<double> PlayingSeconds(platform::BinaryFile& file, std::string_view extension,
                                     bool allow_short_wav = false);

// Whether PlayingSeconds knows files with that extension (wav, mp3, ogg, wma).
bool KnowsContainer(std::string_view extension);

std::optional<double> WavSeconds(platform::BinaryFile& file, bool allow_short);
std::optional<double> Mp3Seconds(platform::BinaryFile& file);
std::optional<double> OggSeconds(platform::BinaryFile& file);
std::optional<double> AsfSeconds(platform::BinaryFile& file);

// Whether an encoder's output is complete: it plays, and for no less than its source (less a
// frame's worth of slack); source_seconds is nothing when the source's length is unknown.
bool IsCompleteOutput(platform::BinaryFile& output, std::string_view extension,
                      std::optional<double> source_seconds);

}  // namespace wavforge

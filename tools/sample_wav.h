#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <system_error>

namespace wavforge::tools {

// The INFO texts a sample gets; an unset one is left out of the list.
struct SampleTags {
  std::optional<std::string> genre;   // IGNR
  std::optional<std::string> artist;  // IART
  std::optional<std::string> album;   // IALB
  std::optional<std::string> title;   // INAM
};

// A 16-bit PCM recording: a sine tone of the given length, or, with sparse_data_bytes, a data
// chunk of that declared size that is never written (a hole in the file, silence when read).
struct SampleWav {
  double seconds = 3.0;
  std::uint32_t rate = 44100;
  std::uint16_t channels = 2;
  double frequency = 440.0;
  std::optional<std::uint64_t> sparse_data_bytes;
  SampleTags tags;
};

// What is wrong with the description, or nothing when it can be written.
std::optional<std::string> ValidationError(const SampleWav& sample);

// Bytes of audio in the data chunk.
std::uint64_t DataSize(const SampleWav& sample);

// The RIFF header, the format chunk and the data chunk's header: everything before the audio.
std::string HeaderBytes(const SampleWav& sample);

// The LIST INFO chunk of the tags, each text ending with NUL and padded to an even size;
// empty when no tag is set.
std::string InfoListBytes(const SampleTags& tags);

// Writes the file, replacing any file of that name; the INFO list follows the audio, as
// recorders that tag after recording write it. The description must be valid.
std::error_code WriteSampleWav(const std::string& path, const SampleWav& sample);

}  // namespace wavforge::tools

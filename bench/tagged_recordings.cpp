#include "bench/tagged_recordings.h"

#include <array>
#include <cstdio>
#include <stdexcept>

#include "tools/sample_wav.h"

namespace wavforge::bench {
namespace {

// Enough genres that the job makes several music subfolders, as a real collection would.
constexpr std::array<const char*, 8> kGenres = {"Jazz",       "Rock",  "Classical", "Folk",
                                                "Electronic", "Blues", "Soul",      "Talk Radio"};
constexpr std::size_t kArtists = 500;

std::string Numbered(const char* format, std::size_t number) {
  char text[64];
  std::snprintf(text, sizeof text, format, number);
  return text;
}

}  // namespace

std::vector<TaggedRecording> MakeTaggedRecordings(const std::string& folder, std::size_t count,
                                                  std::uint64_t data_bytes) {
  std::vector<TaggedRecording> recordings;
  recordings.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    tools::SampleWav sample;
    sample.sparse_data_bytes = data_bytes;
    sample.tags.genre = kGenres[i % kGenres.size()];
    sample.tags.artist = Numbered("Artist %03zu", i % kArtists);
    sample.tags.album = Numbered("Album %02zu", i % 50);
    sample.tags.title = Numbered("Recording %05zu", i);
    if (const auto problem = tools::ValidationError(sample)) throw std::runtime_error(*problem);
    const std::string path = folder + Numbered("/rec%05zu.wav", i);
    if (const auto error = tools::WriteSampleWav(path, sample)) {
      throw std::runtime_error("cannot write " + path + ": " + error.message());
    }
    recordings.push_back({path, *sample.tags.title});
  }
  return recordings;
}

}  // namespace wavforge::bench

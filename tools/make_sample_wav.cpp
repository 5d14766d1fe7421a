// wavforge-sample-wav: writes tagged 16-bit PCM recordings for the demo and the benchmarks.

#include <CLI/CLI.hpp>

#include <iostream>
#include <string>

#include "tools/sample_wav.h"

namespace {

constexpr int kError = 2;

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{
      "wavforge-sample-wav: write a 16-bit PCM WAV file with a sine tone and RIFF INFO tags "
      "after the audio"};
  wavforge::tools::SampleWav sample;
  std::string path;
  std::uint64_t sparse_bytes = 0;
  std::string genre, artist, album, title;

  app.add_option("FILE", path, "The WAV file to write (replaced when it exists)")->required();
  auto* seconds =
      app.add_option("--seconds", sample.seconds, "Length of the tone")->capture_default_str();
  app.add_option("--rate", sample.rate, "Sample rate in Hz")->capture_default_str();
  app.add_option("--channels", sample.channels, "Number of channels")->capture_default_str();
  app.add_option("--frequency", sample.frequency, "Frequency of the sine tone in Hz")
      ->capture_default_str();
  auto* sparse = app.add_option("--sparse-data", sparse_bytes,
                                "Declare a data chunk of BYTES that is never written: a hole "
                                "in the file that reads as silence")
                     ->excludes(seconds);
  auto* genre_option = app.add_option("--genre", genre, "IGNR text");
  auto* artist_option = app.add_option("--artist", artist, "IART text");
  auto* album_option = app.add_option("--album", album, "IALB text");
  auto* title_option = app.add_option("--title", title, "INAM text");

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const int code = app.exit(error);
    return code == 0 ? 0 : kError;
  }

  if (sparse->count() > 0) sample.sparse_data_bytes = sparse_bytes;
  if (genre_option->count() > 0) sample.tags.genre = genre;
  if (artist_option->count() > 0) sample.tags.artist = artist;
  if (album_option->count() > 0) sample.tags.album = album;
  if (title_option->count() > 0) sample.tags.title = title;

  if (const auto problem = wavforge::tools::ValidationError(sample)) {
    std::cerr << "wavforge-sample-wav: " << *problem << '\n';
    return kError;
  }
  if (const auto error = wavforge::tools::WriteSampleWav(path, sample)) {
    std::cerr << "wavforge-sample-wav: cannot write " << path << ": " << error.message() << '\n';
    return kError;
  }
  return 0;
}

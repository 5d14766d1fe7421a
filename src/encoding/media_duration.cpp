#include "encoding/media_duration.h"

#include <algorithm>

#include "encoding/byte_reader.h"
#include "settings/text_replace.h"

namespace wavforge {
namespace {

// Encoders may drop or add up to a frame or two at either end; a cut file misses far more.
constexpr double kSlackSeconds = 0.5;
constexpr double kSlackShare = 0.01;

}  // namespace

std::optional<double> WavSeconds(platform::BinaryFile& file, bool allow_short) {
  ByteReader bytes(file);
  const auto riff = bytes.At(0, 12);
  if (riff.size() < 12 || riff.substr(0, 4) != "RIFF" || riff.substr(8, 4) != "WAVE") {
    return std::nullopt;
  }
  std::uint64_t byte_rate = 0;
  std::uint64_t position = 12;
  while (true) {
    const auto header = bytes.At(position, 8);
    if (header.size() < 8) return std::nullopt;
    const std::uint64_t size = LittleEndian(header.substr(4), 4);
    const std::uint64_t data = position + 8;
    if (header.substr(0, 4) == "fmt ") {
      const auto format = bytes.At(data, 16);
      if (format.size() < 16) return std::nullopt;
      byte_rate = LittleEndian(format.substr(8), 4);
    } else if (header.substr(0, 4) == "data") {
      if (byte_rate == 0) return std::nullopt;
      std::uint64_t held = bytes.Size() - data;
      if (size > held && !allow_short) return std::nullopt;
      return static_cast<double>(std::min(size, held)) / static_cast<double>(byte_rate);
    }
    position = data + size + (size & 1);
  }
}

std::optional<double> PlayingSeconds(platform::BinaryFile& file, std::string_view extension,
                                     bool allow_short_wav) {
  const std::string kind = ToLowerAscii(std::string(extension));
  if (kind == "wav") return WavSeconds(file, allow_short_wav);
  if (kind == "mp3") return Mp3Seconds(file);
  if (kind == "ogg") return OggSeconds(file);
  if (kind == "wma") return AsfSeconds(file);
  return std::nullopt;
}

bool KnowsContainer(std::string_view extension) {
  const std::string kind = ToLowerAscii(std::string(extension));
  return kind == "wav" || kind == "mp3" || kind == "ogg" || kind == "wma";
}

bool IsCompleteOutput(platform::BinaryFile& output, std::string_view extension,
                      std::optional<double> source_seconds) {
  if (output.Size() == 0) return false;
  const auto seconds = PlayingSeconds(output, extension);
  if (!seconds) return false;
  if (!source_seconds) return true;
  const double slack = std::max(kSlackSeconds, *source_seconds * kSlackShare);
  return *seconds + slack >= *source_seconds;
}

}  // namespace wavforge

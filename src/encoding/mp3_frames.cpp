#include <array>

#include "encoding/byte_reader.h"
#include "encoding/media_duration.h"

// Counts the MPEG audio layer III frames of an MP3 file by hopping from frame header to frame
// header; an ID3v2 tag in front and an ID3v1 or APE tag behind are stepped over.
namespace wavforge {
namespace {

constexpr std::array<int, 16> kMpeg1Kbits = {0,   32,  40,  48,  56,  64,  80,  96,
                                             112, 128, 160, 192, 224, 256, 320, 0};
constexpr std::array<int, 16> kMpeg2Kbits = {0,  8,  16, 24,  32,  40,  48,  56,
                                             64, 80, 96, 112, 128, 144, 160, 0};
constexpr std::array<int, 3> kMpeg1Rates = {44100, 48000, 32000};

struct Frame {
  std::uint64_t length = 0;
  int samples = 0;
  int rate = 0;
};

// A layer III frame header, or a frame of length 0 when the bytes are not one.
Frame ParseHeader(std::string_view header) {
  const auto b1 = static_cast<unsigned char>(header[1]);
  const auto b2 = static_cast<unsigned char>(header[2]);
  if (static_cast<unsigned char>(header[0]) != 0xFF || (b1 & 0xE0) != 0xE0) return {};
  const int version = (b1 >> 3) & 3;  // 0: MPEG 2.5, 2: MPEG 2, 3: MPEG 1
  const int layer = (b1 >> 1) & 3;    // 1: layer III
  const int bitrate_index = b2 >> 4;
  const int rate_index = (b2 >> 2) & 3;
  if (version == 1 || layer != 1 || rate_index == 3) return {};
  const bool mpeg1 = version == 3;
  const int kbits = (mpeg1 ? kMpeg1Kbits : kMpeg2Kbits)[static_cast<std::size_t>(bitrate_index)];
  if (kbits == 0) return {};
  const int rate = kMpeg1Rates[static_cast<std::size_t>(rate_index)] / (mpeg1          ? 1
                                                                        : version == 2 ? 2
                                                                                       : 4);
  const int padding = (b2 >> 1) & 1;
  const int per_frame = mpeg1 ? 144 : 72;
  return {static_cast<std::uint64_t>(per_frame * kbits * 1000 / rate + padding), mpeg1 ? 1152 : 576,
          rate};
}

bool IsTrailingTag(ByteReader& bytes, std::uint64_t position) {
  const auto head = bytes.At(position, 8);
  return (head.substr(0, 3) == "TAG" && bytes.Size() - position == 128) || head == "APETAGEX" ||
         head.substr(0, 6) == "LYRICS";
}

}  // namespace

std::optional<double> Mp3Seconds(platform::BinaryFile& file) {
  ByteReader bytes(file);
  std::uint64_t position = 0;
  const auto id3 = bytes.At(0, 10);
  if (id3.size() == 10 && id3.substr(0, 3) == "ID3") {
    std::uint64_t size = 0;
    for (int i = 6; i < 10; ++i) size = (size << 7) | (static_cast<unsigned char>(id3[i]) & 0x7F);
    const bool footer = (static_cast<unsigned char>(id3[5]) & 0x10) != 0;
    position = 10 + size + (footer ? 10 : 0);
  }
  std::uint64_t samples = 0;
  int rate = 0;
  while (position < bytes.Size()) {
    const auto header = bytes.At(position, 4);
    const Frame frame = header.size() == 4 ? ParseHeader(header) : Frame{};
    if (frame.length == 0) {
      if (rate != 0 && IsTrailingTag(bytes, position)) break;
      return std::nullopt;  // not an MP3, or something other than frames in its middle
    }
    if (position + frame.length > bytes.Size()) return std::nullopt;  // the last frame is cut
    samples += static_cast<std::uint64_t>(frame.samples);
    rate = frame.rate;
    position += frame.length;
  }
  if (rate == 0) return std::nullopt;
  return static_cast<double>(samples) / rate;
}

}  // namespace wavforge

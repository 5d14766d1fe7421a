#include "encoding/byte_reader.h"
#include "encoding/media_duration.h"

// Walks the pages of an Ogg Vorbis file: every page must be whole and the last one must end
// the stream; the last page's granule position counts the samples.
namespace wavforge {
namespace {

constexpr std::size_t kPageHeader = 27;
constexpr unsigned char kEndOfStream = 0x04;

}  // namespace

std::optional<double> OggSeconds(platform::BinaryFile& file) {
  ByteReader bytes(file);
  std::uint64_t position = 0;
  std::uint64_t rate = 0;
  std::uint64_t granule = 0;
  bool ended = false;
  while (position < bytes.Size()) {
    const auto header = bytes.At(position, kPageHeader);
    if (header.size() < kPageHeader || header.substr(0, 4) != "OggS") return std::nullopt;
    const auto segments = static_cast<unsigned char>(header[26]);
    const auto table = bytes.At(position + kPageHeader, segments);
    if (table.size() < segments) return std::nullopt;
    std::uint64_t body = 0;
    for (const char lacing : table) body += static_cast<unsigned char>(lacing);
    const std::uint64_t body_at = position + kPageHeader + segments;
    if (body_at + body > bytes.Size()) return std::nullopt;  // the page is cut
    if (rate == 0) {
      const auto identification = bytes.At(body_at, 16);
      if (identification.size() < 16 || identification.substr(0, 7) != "\x01vorbis") {
        return std::nullopt;
      }
      rate = LittleEndian(identification.substr(12), 4);
      if (rate == 0) return std::nullopt;
    }
    granule = LittleEndian(header.substr(6), 8);
    ended = (static_cast<unsigned char>(header[5]) & kEndOfStream) != 0;
    position = body_at + body;
  }
  if (!ended) return std::nullopt;
  return static_cast<double>(granule) / static_cast<double>(rate);
}

}  // namespace wavforge

#include "encoding/byte_reader.h"
#include "encoding/media_duration.h"

// Reads the file properties of a WMA (ASF) file: its writer stores the file's whole size and
// play time there when it finishes, so a cut file disagrees with its own header.
namespace wavforge {
namespace {

constexpr std::string_view kHeaderObject(
    "\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C", 16);
constexpr std::string_view kFileProperties(
    "\xA1\xDC\xAB\x8C\x47\xA9\xCF\x11\x8E\xE4\x00\xC0\x0C\x20\x53\x65", 16);
constexpr std::size_t kHeaderObjectSize = 30;
constexpr std::size_t kFilePropertiesSize = 104;

}  // namespace

std::optional<double> AsfSeconds(platform::BinaryFile& file) {
  ByteReader bytes(file);
  const auto header = bytes.At(0, kHeaderObjectSize);
  if (header.size() < kHeaderObjectSize || header.substr(0, 16) != kHeaderObject) {
    return std::nullopt;
  }
  const std::uint64_t header_end = LittleEndian(header.substr(16), 8);
  std::uint64_t position = kHeaderObjectSize;
  while (position + 24 <= header_end) {
    const auto object = bytes.At(position, kFilePropertiesSize);
    if (object.size() < 24) return std::nullopt;
    const std::uint64_t size = LittleEndian(object.substr(16), 8);
    if (size < 24) return std::nullopt;
    if (object.substr(0, 16) == kFileProperties) {
      if (object.size() < kFilePropertiesSize) return std::nullopt;
      if (LittleEndian(object.substr(40), 8) != bytes.Size()) return std::nullopt;
      const double play = static_cast<double>(LittleEndian(object.substr(64), 8)) / 1e7;
      const double preroll = static_cast<double>(LittleEndian(object.substr(80), 8)) / 1e3;
      return play - preroll;
    }
    position += size;
  }
  return std::nullopt;
}

}  // namespace wavforge

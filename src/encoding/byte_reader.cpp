#include "encoding/byte_reader.h"

#include <algorithm>

namespace wavforge {
namespace {

constexpr std::size_t kBlock = 256 * 1024;

}  // namespace

std::string_view ByteReader::At(std::uint64_t offset, std::size_t count) {
  if (offset >= size_) return {};
  const bool cached = offset >= block_offset_ && offset + count <= block_offset_ + block_.size();
  if (!cached) {
    const auto wanted =
        static_cast<std::size_t>(std::min<std::uint64_t>(std::max(count, kBlock), size_ - offset));
    block_.resize(wanted);
    block_.resize(file_.ReadAt(offset, block_));
    block_offset_ = offset;
  }
  const std::size_t start = static_cast<std::size_t>(offset - block_offset_);
  if (start >= block_.size()) return {};
  return std::string_view(block_).substr(start, count);
}

std::uint64_t LittleEndian(std::string_view bytes, std::size_t count) {
  std::uint64_t value = 0;
  for (std::size_t i = count; i-- > 0;) value = (value << 8) | static_cast<unsigned char>(bytes[i]);
  return value;
}

std::string LittleEndianBytes(std::uint64_t value, std::size_t count) {
  std::string bytes;
  for (std::size_t i = 0; i < count; ++i) bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
  return bytes;
}

}  // namespace wavforge

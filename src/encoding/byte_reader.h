#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/binary_file.h"

namespace wavforge {

// Reads a file front to back in large blocks, so walking thousands of small frame headers
// costs a few reads, not thousands.
class ByteReader {
 public:
  explicit ByteReader(platform::BinaryFile& file) : file_(file), size_(file.Size()) {}

  std::uint64_t Size() const { return size_; }
  // Up to count bytes at offset (fewer at the end of the file); valid until the next call.
  std::string_view At(std::uint64_t offset, std::size_t count);

 private:
  platform::BinaryFile& file_;
  std::uint64_t size_;
  std::string block_;
  std::uint64_t block_offset_ = 0;
};

// Little-endian numbers from the start of bytes, which must be long enough.
std::uint64_t LittleEndian(std::string_view bytes, std::size_t count);
// The low count bytes of value, little-endian, as a file stores them.
std::string LittleEndianBytes(std::uint64_t value, std::size_t count);

}  // namespace wavforge

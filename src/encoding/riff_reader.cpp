#include "encoding/riff_reader.h"

#include <algorithm>

#include "encoding/byte_reader.h"

namespace wavforge {
namespace {

constexpr std::uint64_t kHeaderSize = 8;
constexpr std::uint64_t kTypeSize = 4;
// Lists up to this size are read in one go; larger ones are searched chunk by chunk.
constexpr std::uint64_t kWholeListLimit = 1 << 20;
// Long texts outside the cache are read in pieces, so a huge chunk of zeros costs one piece.
constexpr std::uint64_t kTextPiece = 64 * 1024;

constexpr ChunkId kRiff = {'R', 'I', 'F', 'F'};
constexpr ChunkId kList = {'L', 'I', 'S', 'T'};
constexpr ChunkId kInfo = {'I', 'N', 'F', 'O'};

bool SameId(std::string_view bytes, const ChunkId& id) {
  return bytes.size() >= id.size() && std::equal(id.begin(), id.end(), bytes.begin());
}

}  // namespace

ChunkId MakeChunkId(std::string_view text) {
  ChunkId id = {' ', ' ', ' ', ' '};
  std::copy_n(text.begin(), std::min(text.size(), id.size()), id.begin());
  return id;
}

RiffReader::RiffReader(platform::BinaryFile& file) : file_(file), file_size_(file.Size()) {}

bool RiffReader::FindInfoList() {
  const auto riff = FindChunk(0, file_size_, kRiff, nullptr);
  if (!riff || riff->size < kTypeSize) return false;
  const auto list = FindChunk(riff->data + kTypeSize, riff->data + riff->size, kList, &kInfo);
  if (!list) return false;
  info_begin_ = list->data + kTypeSize;
  info_end_ = list->data + list->size;
  info_declared_size_ = list->declared_size;
  // A list of reasonable size is read whole, so that searching it needs no further reads.
  if (info_end_ - info_begin_ <= kWholeListLimit) {
    cache_.resize(static_cast<std::size_t>(info_end_ - info_begin_));
    cache_.resize(file_.ReadAt(info_begin_, cache_));
    cache_offset_ = info_begin_;
  }
  return true;
}

std::optional<std::string> RiffReader::ReadInfoText(const ChunkId& id) {
  const auto chunk = FindChunk(info_begin_, info_end_, id, nullptr);
  if (!chunk) return std::nullopt;
  // The multimedia I/O leaves a found list or form positioned after its type and reads the
  // full size from there.
  std::uint64_t offset = chunk->data;
  if (id == kList || id == kRiff) offset += kTypeSize;
  std::uint64_t remaining =
      offset < info_end_ ? std::min(chunk->declared_size, info_end_ - offset) : 0;

  std::string text;
  bool read_any = false;
  while (remaining > 0) {
    const auto piece = static_cast<std::size_t>(std::min(remaining, kTextPiece));
    const std::string_view bytes = Read(offset, piece);
    if (bytes.empty()) break;
    read_any = true;
    const auto nul = bytes.find('\0');
    text.append(bytes.substr(0, nul));
    if (nul != std::string_view::npos || bytes.size() < piece) break;
    offset += piece;
    remaining -= piece;
  }
  if (!read_any) return std::nullopt;
  return text;
}

std::optional<std::string> RiffReader::InfoListBytes() const {
  const std::uint64_t size = kTypeSize + cache_.size();
  if (cache_offset_ != info_begin_ || size != info_declared_size_ || size > kWholeListLimit) {
    return std::nullopt;
  }
  std::string bytes = "LIST" + LittleEndianBytes(size, 4) + "INFO";
  bytes += cache_;
  if (size & 1) bytes += '\0';
  return bytes;
}

std::optional<RiffReader::Chunk> RiffReader::FindChunk(std::uint64_t position, std::uint64_t end,
                                                       const ChunkId& id,
                                                       const ChunkId* list_type) {
  while (position <= end && end - position >= kHeaderSize) {
    const std::string_view header = Read(position, kHeaderSize);
    if (header.size() < kHeaderSize) return std::nullopt;
    Chunk chunk;
    chunk.data = position + kHeaderSize;
    chunk.declared_size = LittleEndian(header.substr(4), 4);
    chunk.size = std::min(chunk.declared_size, end - chunk.data);
    if (SameId(header, id)) {
      if (!list_type) return chunk;
      // Only the type of another list is read: some lists ("wavl") hold the audio.
      if (chunk.size >= kTypeSize && SameId(Read(chunk.data, kTypeSize), *list_type)) {
        return chunk;
      }
    }
    // Skip the data, and the pad byte after an odd size, without reading either.
    position = chunk.data + chunk.declared_size + (chunk.declared_size & 1);
  }
  return std::nullopt;
}

std::string_view RiffReader::Read(std::uint64_t offset, std::size_t count) {
  if (offset >= cache_offset_ && offset - cache_offset_ <= cache_.size() &&
      count <= cache_.size() - (offset - cache_offset_)) {
    return std::string_view(cache_).substr(static_cast<std::size_t>(offset - cache_offset_), count);
  }
  scratch_.resize(count);
  return std::string_view(scratch_.data(), file_.ReadAt(offset, scratch_));
}

}  // namespace wavforge

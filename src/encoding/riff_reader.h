#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/binary_file.h"

namespace wavforge {

using ChunkId = std::array<char, 4>;

// A chunk id from a text of any length: cut or padded with spaces to four characters.
ChunkId MakeChunkId(std::string_view text);

// Finds the INFO list of a RIFF file and reads its texts with the search rules of the Windows
// multimedia file I/O: the first "RIFF" chunk of the file whatever its form type, the first
// "LIST" chunk of list type "INFO" inside it, and every text chunk searched from the start of
// that list's data; odd-sized chunks are followed by a pad byte.
//
// Recordings are often gigabytes long and many writers put the INFO list after the audio, so
// the reader hops from chunk header to chunk header and never reads the data of a chunk it
// skips. No chunk size is trusted beyond the end of the file or of the enclosing chunk. A
// list of reasonable size is read once and searched in memory.
class RiffReader {
 public:
  explicit RiffReader(platform::BinaryFile& file);

  // Locates the INFO list; false when the file has no RIFF chunk or that holds no INFO list.
  bool FindInfoList();

  // The data of the first chunk with that id in the INFO list, up to its first NUL (INFO texts
  // end with one). Nothing when the list has no such chunk or no byte of its data can be read.
  // Only valid after FindInfoList succeeded.
  std::optional<std::string> ReadInfoText(const ChunkId& id);

  // The whole INFO list as it would stand in a file: "LIST", its size, "INFO" and the chunks,
  // with a pad byte after an odd size. Nothing when it is too large to be read in one go or
  // ends before its declared size. Only valid after FindInfoList succeeded.
  std::optional<std::string> InfoListBytes() const;

 private:
  struct Chunk {
    std::uint64_t data = 0;           // offset of the first data byte
    std::uint64_t declared_size = 0;  // the size field as written
    std::uint64_t size = 0;           // the part of the data inside the enclosing region
  };

  // The first chunk with that id among the chunks from position up to end (never beyond the
  // end of the file); with a list type, only a chunk whose data starts with that type counts.
  std::optional<Chunk> FindChunk(std::uint64_t position, std::uint64_t end, const ChunkId& id,
                                 const ChunkId* list_type);
  // Up to count bytes at offset, from the cached list when it holds them; the view lives until
  // the next call.
  std::string_view Read(std::uint64_t offset, std::size_t count);

  platform::BinaryFile& file_;
  std::uint64_t file_size_;
  std::uint64_t info_begin_ = 0;  // first byte after the list type
  std::uint64_t info_end_ = 0;
  std::uint64_t info_declared_size_ = 0;
  std::string cache_;
  std::uint64_t cache_offset_ = 0;
  std::string scratch_;
};

}  // namespace wavforge

#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace platform {

// One file open for reading at arbitrary offsets; closed when the object goes.
class BinaryFile {
 public:
  virtual ~BinaryFile() = default;

  // The size in bytes when the file was opened.
  virtual std::uint64_t Size() const = 0;
  // Reads up to buffer.size() bytes starting at offset; returns how many were read, which is
  // fewer only at the end of the file or on an error.
  virtual std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) = 0;
};

// Opens files for reading.
class BinaryFileOpener {
 public:
  virtual ~BinaryFileOpener() = default;

  // The open file, or nullptr when the path cannot be opened as a regular file.
  virtual std::unique_ptr<BinaryFile> OpenForReading(const std::string& path) = 0;
};

}  // namespace platform

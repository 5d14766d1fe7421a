#pragma once

#include "platform/binary_file.h"

namespace platform::posix {

// Reads with pread on one descriptor, so a reader can jump over gigabytes of audio without
// touching them.
class PosixBinaryFileOpener final : public BinaryFileOpener {
 public:
  std::unique_ptr<BinaryFile> OpenForReading(const std::string& path) override;
};

}  // namespace platform::posix

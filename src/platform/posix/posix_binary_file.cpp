#include "platform/posix/posix_binary_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace platform::posix {
namespace {

class PosixBinaryFile final : public BinaryFile {
 public:
  PosixBinaryFile(int descriptor, std::uint64_t size) : descriptor_(descriptor), size_(size) {}
  ~PosixBinaryFile() override { ::close(descriptor_); }
  PosixBinaryFile(const PosixBinaryFile&) = delete;
  PosixBinaryFile& operator=(const PosixBinaryFile&) = delete;

  std::uint64_t Size() const override { return size_; }

  std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) override {
    std::size_t done = 0;
    while (done < buffer.size()) {
      const auto position = static_cast<off_t>(offset + done);
      if (position < 0) break;
      const ssize_t got =
          ::pread(descriptor_, buffer.data() + done, buffer.size() - done, position);
      if (got < 0 && errno == EINTR) continue;
      if (got <= 0) break;
      done += static_cast<std::size_t>(got);
    }
    return done;
  }

 private:
  int descriptor_;
  std::uint64_t size_;
};

}  // namespace

std::unique_ptr<BinaryFile> PosixBinaryFileOpener::OpenForReading(const std::string& path) {
  // O_NONBLOCK keeps a FIFO with a recording's name from blocking the open; such files are
  // turned away below anyway.
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) return nullptr;
  struct stat status {};
  if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
    ::close(descriptor);
    return nullptr;
  }
  return std::make_unique<PosixBinaryFile>(descriptor, static_cast<std::uint64_t>(status.st_size));
}

}  // namespace platform::posix

#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/binary_file.h"

namespace fakes {

// Files held in memory. A file may be sparse: pieces of bytes at offsets inside a larger size,
// the gaps reading as zeros, so a test can describe a recording of gigabytes cheaply. Every
// open and read is recorded.
class MemoryBinaryFiles final : public platform::BinaryFileOpener {
 public:
  struct Read {
    std::uint64_t offset;
    std::size_t count;
  };

  void Add(const std::string& path, std::string bytes) {
    const std::uint64_t size = bytes.size();
    AddSparse(path, {{0, std::move(bytes)}}, size);
  }
  void AddSparse(const std::string& path, std::map<std::uint64_t, std::string> pieces,
                 std::uint64_t size) {
    files_[path] = std::make_shared<Content>(Content{std::move(pieces), size});
  }

  std::unique_ptr<platform::BinaryFile> OpenForReading(const std::string& path) override {
    ++opens_;
    const auto found = files_.find(path);
    if (found == files_.end()) return nullptr;
    return std::make_unique<File>(*this, found->second);
  }

  int opens() const { return opens_; }
  int open_files() const { return open_files_; }
  const std::vector<Read>& reads() const { return reads_; }
  // Whether any read touched a byte in [begin, end).
  bool ReadAnyOf(std::uint64_t begin, std::uint64_t end) const {
    return std::any_of(reads_.begin(), reads_.end(), [&](const Read& read) {
      return read.count > 0 && read.offset < end && begin < read.offset + read.count;
    });
  }

 private:
  struct Content {
    std::map<std::uint64_t, std::string> pieces;
    std::uint64_t size;
  };

  class File final : public platform::BinaryFile {
   public:
    File(MemoryBinaryFiles& owner, std::shared_ptr<const Content> content)
        : owner_(owner), content_(std::move(content)) {
      ++owner_.open_files_;
    }
    ~File() override { --owner_.open_files_; }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    std::uint64_t Size() const override { return content_->size; }

    std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) override {
      owner_.reads_.push_back({offset, buffer.size()});
      if (offset >= content_->size) return 0;
      const auto count =
          static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), content_->size - offset));
      std::fill_n(buffer.begin(), count, '\0');
      for (const auto& [start, bytes] : content_->pieces) {
        const std::uint64_t from = std::max(start, offset);
        const std::uint64_t to = std::min(start + bytes.size(), offset + count);
        if (from >= to) continue;
        std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(from - start), to - from,
                    buffer.begin() + static_cast<std::ptrdiff_t>(from - offset));
      }
      return count;
    }

   private:
    MemoryBinaryFiles& owner_;
    std::shared_ptr<const Content> content_;
  };

  std::map<std::string, std::shared_ptr<Content>> files_;
  std::vector<Read> reads_;
  int opens_ = 0;
  int open_files_ = 0;
};

}  // namespace fakes

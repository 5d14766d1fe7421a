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

// Files held in memory; every read is recorded, so a test can tell what was never read.
class MemoryBinaryFiles final : public platform::BinaryFileOpener {
 public:
  void Add(const std::string& path, std::string bytes) {
    files_[path] = std::make_shared<const std::string>(std::move(bytes));
  }

  std::unique_ptr<platform::BinaryFile> OpenForReading(const std::string& path) override {
    const auto found = files_.find(path);
    if (found == files_.end()) return nullptr;
    return std::make_unique<File>(reads_, found->second);
  }

  // Whether any read touched a byte in [begin, end).
  bool ReadAnyOf(std::uint64_t begin, std::uint64_t end) const {
    return std::any_of(reads_.begin(), reads_.end(), [&](const auto& read) {
      return read.second > 0 && read.first < end && begin < read.first + read.second;
    });
  }

 private:
  using Reads = std::vector<std::pair<std::uint64_t, std::size_t>>;  // offset, count

  class File final : public platform::BinaryFile {
   public:
    File(Reads& reads, std::shared_ptr<const std::string> bytes)
        : reads_(reads), bytes_(std::move(bytes)) {}

    std::uint64_t Size() const override { return bytes_->size(); }

    std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) override {
      reads_.emplace_back(offset, buffer.size());
      if (offset >= bytes_->size()) return 0;
      const std::size_t count = std::min(buffer.size(), bytes_->size() - offset);
      std::copy_n(bytes_->begin() + static_cast<std::ptrdiff_t>(offset), count, buffer.begin());
      return count;
    }

   private:
    Reads& reads_;
    std::shared_ptr<const std::string> bytes_;
  };

  std::map<std::string, std::shared_ptr<const std::string>> files_;
  Reads reads_;
};

}  // namespace fakes

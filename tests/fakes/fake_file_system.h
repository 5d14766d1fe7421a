#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "platform/path_rules.h"

namespace fakes {

// Folders and files in memory. Like the real one, CreateFolder makes one level only: it
// fails when the parent folder is missing. Every CreateFolder call is recorded.
class FakeFileSystem final : public platform::FileSystem {
 public:
  void AddFolder(const std::string& path) { folders_.insert(path); }
  void AddFile(const std::string& path, std::string bytes) { files_[path] = std::move(bytes); }

  bool HasFolder(const std::string& path) const { return folders_.count(path) > 0; }
  const std::vector<std::string>& created() const { return created_; }

  std::optional<std::uint64_t> FileSize(const std::string& path) const override {
    const auto found = files_.find(path);
    if (found == files_.end()) return std::nullopt;
    return found->second.size();
  }

  bool CreateFolder(const std::string& path) override {
    created_.push_back(path);
    if (HasFolder(path)) return true;
    const auto separator = path.rfind(platform::kPathSeparator);
    const std::string parent = separator == std::string::npos ? "" : path.substr(0, separator);
    if (!parent.empty() && !HasFolder(parent)) return false;
    folders_.insert(path);
    return true;
  }

  bool CopyFile(const std::string& from, const std::string& to) override {
    const auto found = files_.find(from);
    if (found == files_.end()) return false;
    files_[to] = found->second;
    return true;
  }

 private:
  std::set<std::string> folders_;
  std::map<std::string, std::string> files_;
  std::vector<std::string> created_;
};

}  // namespace fakes

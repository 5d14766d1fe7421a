#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <system_error>
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
  std::optional<std::string> Contents(const std::string& path) const {
    const auto found = files_.find(path);
    if (found == files_.end()) return std::nullopt;
    return found->second;
  }
  // Makes every later write fail with this error.
  void FailWrites(std::error_code error) { write_error_ = error; }

  std::optional<std::uint64_t> FileSize(const std::string& path) const override {
    const auto found = files_.find(path);
    if (found == files_.end()) return std::nullopt;
    return found->second.size();
  }

  bool PathExists(const std::string& path) const override {
    return HasFolder(path) || files_.count(path) > 0;
  }

  bool CreateFolder(const std::string& path) override {
    created_.push_back(path);
    if (HasFolder(path)) return true;
    const std::string parent = Parent(path);
    if (!parent.empty() && !HasFolder(parent)) return false;
    folders_.insert(path);
    return true;
  }

  bool CreatePrivateFolder(const std::string& path) override { return CreateFolder(path); }

  bool CopyFile(const std::string& from, const std::string& to) override {
    const auto found = files_.find(from);
    if (found == files_.end()) return false;
    files_[to] = found->second;
    return true;
  }

  bool AppendToFile(const std::string& path, const std::string& bytes) override {
    if (write_error_ || !HasFolder(Parent(path))) return false;
    files_[path] += bytes;
    return true;
  }

  std::error_code WriteFile(const std::string& path, const std::string& bytes) override {
    if (write_error_) return write_error_;
    if (!HasFolder(Parent(path))) return std::make_error_code(std::errc::no_such_file_or_directory);
    files_[path] = bytes;
    return {};
  }

  std::vector<std::string> ListFiles(const std::string& folder) const override {
    std::vector<std::string> names;
    for (const auto& [path, bytes] : files_) {
      if (Parent(path) == folder) names.push_back(path.substr(folder.size() + 1));
    }
    return names;
  }

  bool DeleteFile(const std::string& path) override { return files_.erase(path) > 0; }

 private:
  static std::string Parent(const std::string& path) {
    const auto separator = path.rfind(platform::kPathSeparator);
    return separator == std::string::npos ? "" : path.substr(0, separator);
  }

  std::set<std::string> folders_;
  std::map<std::string, std::string> files_;
  std::vector<std::string> created_;
  std::error_code write_error_;
};

}  // namespace fakes

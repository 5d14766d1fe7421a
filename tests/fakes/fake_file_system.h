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
  const std::vector<std::string>& created() const { return created_; }
  std::optional<std::string> Contents(const std::string& path) const {
    const auto found = files_.find(path);
    return found == files_.end() ? std::nullopt : std::optional<std::string>(found->second);
  }

  std::optional<std::uint64_t> FileSize(const std::string& path) const override {
    const auto contents = Contents(path);
    return contents ? std::optional<std::uint64_t>(contents->size()) : std::nullopt;
  }
  bool CreateFolder(const std::string& path) override {
    created_.push_back(path);
    if (!folders_.contains(Parent(path))) return folders_.contains(path);
    folders_.insert(path);
    return true;
  }
  bool CreatePrivateFolder(const std::string& path) override { return CreateFolder(path); }
  bool CopyFile(const std::string&, const std::string&) override { return false; }
  bool AppendToFile(const std::string& path, const std::string& bytes) override {
    if (!folders_.contains(Parent(path))) return false;
    files_[path] += bytes;
    return true;
  }
  std::error_code WriteFile(const std::string& path, const std::string& bytes) override {
    if (!folders_.contains(Parent(path)))
      return std::make_error_code(std::errc::no_such_file_or_directory);
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
};

}  // namespace fakes

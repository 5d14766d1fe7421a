#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wavforge {

// The selected source paths, replaced as a whole by each way of selecting files.
class FileList {
 public:
  FileList() = default;
  explicit FileList(std::vector<std::string> items) : items_(std::move(items)) {}

  // -1 for the empty list; every test for files looks only at this.
  int UpperBound() const { return static_cast<int>(items_.size()) - 1; }
  const std::vector<std::string>& Items() const { return items_; }
  void Clear() { items_.clear(); }
  void Replace(std::vector<std::string> items) { items_ = std::move(items); }

 private:
  std::vector<std::string> items_;
};

// Splits a command-line text into file names: blanks separate outside double quotes, "|"
// separates too, and a doubled separator folds into one. Returns false, leaving the list
// alone, when the text is empty.
bool ParseCommandLine(std::string_view command_line, FileList& file_list);

// The command-line text as a Windows program would see it: arguments joined by blanks, those
// holding a blank (or empty) in double quotes.
std::string JoinCommandLine(const std::vector<std::string>& arguments);

}  // namespace wavforge

#include "shell/open_file_answer.h"

#include "platform/path_rules.h"

namespace wavforge {

std::vector<std::string> FilesFromDialogAnswer(std::string_view answer) {
  // The dialog's buffer is NUL-filled beyond the answer; a shorter text reads as if it were.
  std::string buffer(answer);
  buffer.append(2, '\0');
  const std::string result = buffer.substr(0, buffer.find(std::string(2, '\0')));

  std::vector<std::string> parts;
  std::size_t start = 0;
  for (std::size_t nul; (nul = result.find('\0', start)) != std::string::npos; start = nul + 1) {
    parts.push_back(result.substr(start, nul - start));
  }
  parts.push_back(result.substr(start));

  if (parts.size() == 1) return parts;
  std::vector<std::string> files;
  for (std::size_t i = 1; i < parts.size(); ++i) {
    files.push_back(parts[0] + platform::kPathSeparator + parts[i]);
  }
  return files;
}

}  // namespace wavforge

#include "cmd/delete_command.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string>
#include <vector>

#include "cmd/delete_options.h"
#include "cmd/file_name_lookup.h"
#include "cmd/output.h"
#include "cmd/wildcard.h"
#include "platform/path_rules.h"

namespace wavforge::cmd {
namespace {

constexpr char kSeparator = platform::kPathSeparator;
const std::string kAllFiles = "*";

bool IsRealFolder(const std::string& path) {
  struct stat info {};
  return lstat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

std::string Join(const std::string& folder, const std::string& name) {
  std::string path = folder;
  if (!path.empty() && path.back() != kSeparator) path += kSeparator;
  path += name;
  return path;
}

void DeleteFile(const std::string& path, InterpreterState& state) {
  if (unlink(path.c_str()) == 0 || errno == ENOENT) return;
  WriteError(path + "\nAccess is denied.\n");
  state.error_level = 1;
}

// A plain name: the file it stands for, never a folder.
void DeleteNamed(const std::string& name, InterpreterState& state) {
  const std::optional<std::string> file = FindFileIgnoringCase(name);
  if (file && !IsRealFolder(*file)) DeleteFile(*file, state);
}

// Deletes the files of folder whose names match pattern; with recurse, in its subfolders too
// (links to folders are not followed).
void DeleteMatching(const std::string& folder, const std::string& pattern, bool recurse,
                    InterpreterState& state) {
  const bool wildcards = HasWildcards(pattern);
  std::vector<std::string> files;
  std::vector<std::string> subfolders;
  DIR* listing = opendir(folder.empty() ? "." : folder.c_str());
  if (!listing) return;
  while (const dirent* entry = readdir(listing)) {
    const std::string name = entry->d_name;
    if (name == "." || name == "..") continue;
    const std::string path = Join(folder, name);
    const bool is_folder = IsRealFolder(path);
    if (is_folder && recurse) subfolders.push_back(path);
    if (!is_folder && wildcards && MatchesWildcard(pattern, name)) files.push_back(path);
  }
  closedir(listing);
  if (!wildcards) DeleteNamed(Join(folder, pattern), state);
  for (const std::string& file : files) DeleteFile(file, state);
  for (const std::string& subfolder : subfolders) DeleteMatching(subfolder, pattern, true, state);
}

void DeleteName(const std::string& name, bool recurse, InterpreterState& state) {
  const std::size_t slash = name.rfind(kSeparator);
  const std::size_t pattern_at = slash == std::string::npos ? 0 : slash + 1;
  const std::string pattern = name.substr(pattern_at);
  if (pattern.empty() || (!HasWildcards(pattern) && IsRealFolder(name))) {
    DeleteMatching(name, kAllFiles, recurse, state);  // a folder stands for all its files
  } else if (!HasWildcards(pattern) && !recurse) {
    DeleteNamed(name, state);
  } else {
    DeleteMatching(name.substr(0, pattern_at), pattern, recurse, state);
  }
}

}  // namespace

void RunDeleteCommand(std::string_view rest, InterpreterState& state) {
  const DeleteOptions options = ParseDeleteOptions(rest);
  if (options.show_help) {
    WriteOutput(
        "Deletes one or more files.\n\nDEL [/P] [/F] [/S] [/Q] [/A[[:]attributes]] names\n");
    return;
  }
  if (options.names.empty()) {
    WriteError("The syntax of the command is incorrect.\n");
    state.error_level = 1;
    return;
  }
  for (const std::string& name : options.names) DeleteName(name, options.recurse, state);
}

}  // namespace wavforge::cmd

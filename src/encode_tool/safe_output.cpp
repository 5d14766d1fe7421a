#include "encode_tool/safe_output.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "encoding/delete_reach.h"
#include "encoding/log_quoting.h"
#include "encoding/source_names.h"
#include "platform/path_rules.h"
#include "settings/text_replace.h"

namespace wavforge::encode_tool {
namespace {

constexpr int kMostNumbers = 9999;

bool IsRegularFile(const std::string& path) {
  struct stat info {};
  return stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

std::string Numbered(const std::string& stem, int number, const std::string& extension) {
  const std::string dot_extension = extension.empty() ? "" : "." + extension;
  if (number == 1) return stem + dot_extension;
  return stem + " (" + std::to_string(number) + ")" + dot_extension;
}

// Renames without replacing; falls back to link and unlink where the file system cannot.
int RenameNoReplace(const std::string& from, const std::string& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return errno;
  if (link(from.c_str(), to.c_str()) != 0) return errno;
  unlink(from.c_str());
  return 0;
}

}  // namespace

std::optional<std::string> FindSource(const std::string& base_path) {
  const std::string exact = base_path + ".wav";
  if (IsRegularFile(exact)) return exact;
  const std::string folder = SourceFolder(base_path);
  const std::string wanted = ToLowerAscii(base_path.substr(folder.size()) + ".wav");
  DIR* listing = opendir(folder.empty() ? "." : folder.c_str());
  if (!listing) return std::nullopt;
  std::optional<std::string> found;
  while (const dirent* entry = readdir(listing)) {
    if (ToLowerAscii(entry->d_name) == wanted && IsRegularFile(folder + entry->d_name)) {
      found = folder + entry->d_name;
      break;
    }
  }
  closedir(listing);
  return found;
}

std::string CreateTemporaryOutput(const std::string& folder, const std::string& extension,
                                  std::string& error) {
  std::string name = folder + ".wavforge-XXXXXX." + extension;
  std::vector<char> buffer(name.begin(), name.end());
  buffer.push_back('\0');
  const int fd = mkstemps(buffer.data(), static_cast<int>(extension.size() + 1));
  if (fd < 0) {
    error =
        "cannot write into the output folder " + QuoteForLog(folder) + ": " + std::strerror(errno);
    return {};
  }
  // mkstemps makes the file private; the output is the user's music, made as any other file.
  const mode_t mask = umask(0);
  umask(mask);
  fchmod(fd, 0666 & ~mask);
  close(fd);
  return buffer.data();
}

std::string PlaceOutput(const std::string& temporary, const std::string& stem,
                        const std::string& extension, const std::string& source,
                        std::string& error) {
  const std::string base = BasePath(source);
  for (int number = 1; number <= kMostNumbers; ++number) {
    const std::string candidate = Numbered(stem, number, extension);
    if (candidate == source || DeleteLineReaches(base, candidate)) continue;
    const int failure = RenameNoReplace(temporary, candidate);
    if (failure == 0) return candidate;
    if (failure != EEXIST) {
      error = "cannot move the output to " + QuoteForLog(candidate) + ": " + std::strerror(failure);
      return {};
    }
  }
  error = "no free name for " + QuoteForLog(stem + "." + extension);
  return {};
}

std::string HoldSource(const std::string& source) {
  const std::string extension = source.substr(source.size() - 4);
  const std::string hold = BasePath(source) + " (encoding)";
  for (int number = 1; number <= kMostNumbers; ++number) {
    const std::string candidate = Numbered(hold, number, "") + extension;
    if (link(source.c_str(), candidate.c_str()) == 0) return candidate;
    if (errno != EEXIST) break;
  }
  return {};
}

std::string KeepSource(const std::string& source, const std::string& held) {
  const std::string& current = held.empty() ? source : held;
  const std::string extension = source.substr(source.size() - 4);
  const std::string kept = BasePath(source) + " (not encoded)";
  for (int number = 1; number <= kMostNumbers; ++number) {
    const std::string candidate = Numbered(kept, number, "") + extension;
    const int failure = RenameNoReplace(current, candidate);
    if (failure == 0) {
      // Only after the kept name exists: the del line may run at any moment.
      struct stat original {};
      struct stat kept_file {};
      if (!held.empty() && lstat(source.c_str(), &original) == 0 &&
          stat(candidate.c_str(), &kept_file) == 0 && original.st_dev == kept_file.st_dev &&
          original.st_ino == kept_file.st_ino) {
        unlink(source.c_str());
      }
      return candidate;
    }
    if (failure != EEXIST) break;
  }
  return current;
}

}  // namespace wavforge::encode_tool

#include "platform/posix/posix_environment.h"

#include <strings.h>
#include <unistd.h>

#include <filesystem>

#include "platform/posix/xdg_folders.h"

extern char** environ;

namespace platform::posix {
namespace {

std::string ExecutableFolder() {
  std::error_code error;
  const auto exe = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return std::filesystem::current_path(error).string();
  return exe.parent_path().string();
}

// Windows names that scripts and settings commonly use, with the POSIX variable that means
// the same thing when the Windows name itself is not set.
const char* PosixEquivalent(const std::string& name) {
  if (strcasecmp(name.c_str(), "UserProfile") == 0) return "HOME";
  if (strcasecmp(name.c_str(), "UserName") == 0) return "USER";
  return nullptr;
}

}  // namespace

PosixEnvironment::PosixEnvironment() : program_folder_(ExecutableFolder()) {}

PosixEnvironment::PosixEnvironment(std::string program_folder)
    : program_folder_(std::move(program_folder)) {}

std::optional<std::string> PosixEnvironment::GetVariable(const std::string& name) const {
  if (name.empty() || name.find('=') != std::string::npos) return std::nullopt;
  if (const char* exact = getenv(name.c_str())) return std::string(exact);
  for (char** entry = environ; entry && *entry; ++entry) {
    const std::string_view text(*entry);
    const auto equals = text.find('=');
    if (equals == name.size() && strncasecmp(text.data(), name.c_str(), name.size()) == 0) {
      return std::string(text.substr(equals + 1));
    }
  }
  if (const char* equivalent = PosixEquivalent(name)) {
    if (const char* value = getenv(equivalent)) return std::string(value);
  }
  return std::nullopt;
}

// A variable that exists under another letter case is the one set, so "Path" sets PATH.
void PosixEnvironment::SetVariable(const std::string& name, const std::string& value) {
  std::string target = name;
  if (!getenv(name.c_str())) {
    for (char** entry = environ; entry && *entry; ++entry) {
      const std::string_view text(*entry);
      if (text.find('=') == name.size() &&
          strncasecmp(text.data(), name.c_str(), name.size()) == 0) {
        target = std::string(text.substr(0, name.size()));
        break;
      }
    }
  }
  setenv(target.c_str(), value.c_str(), 1);
}

// Always the NT family: there is no other branch worth taking here.
std::uint32_t PosixEnvironment::GetVersion() const {
  return 0x0A00;
}

std::string PosixEnvironment::SpecialFolderPath(int folder_id, bool create) {
  std::string folder = XdgFolderFor(folder_id);
  if (create && !folder.empty()) {
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
  }
  return folder;
}

}  // namespace platform::posix

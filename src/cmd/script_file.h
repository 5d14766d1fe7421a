#pragma once

#include <cstdint>
#include <string>

namespace wavforge::cmd {

// Which file a script is. Two jobs started in the same second write scripts of the same name, so
// the name alone does not say whether it still holds the script that was started.
struct FileIdentity {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  bool operator==(const FileIdentity&) const = default;
};

enum class ScriptSafety {
  kMissing,  // nothing to run under that name
  kUnsafe,   // a link, not a regular file, not the user's, or others may change it
  kSafe,
};

struct ScriptCheck {
  ScriptSafety safety = ScriptSafety::kMissing;
  FileIdentity identity;
};

// Whether a script may run: it must be a regular file of the user that nobody else may change,
// since whoever can change it runs commands as the user. A link as its last part is not
// followed.
ScriptCheck CheckScript(const std::string& path);

}  // namespace wavforge::cmd

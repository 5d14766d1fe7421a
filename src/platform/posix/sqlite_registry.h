#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/registry.h"

namespace platform::posix {

// The registry kept in two SQLite files: HKEY_CURRENT_USER in the user's store,
// HKEY_LOCAL_MACHINE in the machine-wide one. Every call opens the file it needs and closes it
// again, and every write is one transaction, so several processes may write at once. A few
// values the program reads from the Windows registry come from the system instead:
// HKEY_CURRENT_USER "Environment" "Temp" and "Tmp" (when not stored) from $TMPDIR, else a
// private folder of the user ($XDG_RUNTIME_DIR/wavforge, else /tmp/wavforge-<uid>, created on
// use), and the default user's "User Agent" from the function given here, asked each time the
// value is read (no function or an empty answer: no such value).
// HKEY_CLASSES_ROOT holds nothing; it and HKEY_USERS refuse writes.
class SqliteRegistry final : public Registry {
 public:
  SqliteRegistry(std::string user_store, std::string machine_store,
                 std::function<std::string()> user_agent);

  bool OpenKey(RegistryRoot root, const std::string& subkey, RegistryAccess access) override;
  std::optional<RegistryValue> QueryValue(RegistryRoot root, const std::string& subkey,
                                          const std::string& name) override;
  bool SetValue(RegistryRoot root, const std::string& subkey, const std::string& name,
                const RegistryValue& value) override;
  bool SetDefaultText(RegistryRoot root, const std::string& subkey,
                      const std::string& text) override;

 private:
  // The store file of a root, or nothing for the roots that exist only virtually.
  const std::string* StoreOf(RegistryRoot root) const;
  bool IsVirtualKey(RegistryRoot root, const std::string& folded_path) const;
  std::optional<RegistryValue> VirtualValue(RegistryRoot root, const std::string& folded_path,
                                            const std::string& folded_name) const;

  std::string user_store_;
  std::string machine_store_;
  std::function<std::string()> user_agent_;
};

}  // namespace platform::posix

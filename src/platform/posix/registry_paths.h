#pragma once

#include <string>

namespace platform::posix {

struct RegistryPaths {
  std::string user_store;     // HKEY_CURRENT_USER
  std::string machine_store;  // HKEY_LOCAL_MACHINE
};

// Where the registry files live by the XDG rules: the user's store in $XDG_CONFIG_HOME (else
// ~/.config), the machine's in the first folder of $XDG_DATA_DIRS (else /usr/local/share),
// each in a folder of the given name, as "registry.sqlite". Variables that are empty or not
// absolute paths count as unset.
RegistryPaths DefaultRegistryPaths(const std::string& folder_name);

}  // namespace platform::posix

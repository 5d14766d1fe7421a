#include "platform/posix/posix_platform.h"

#include "platform/posix/registry_paths.h"

namespace platform::posix {
namespace {

SqliteRegistry MakeRegistry(const std::string& product, std::function<std::string()> user_agent) {
  const RegistryPaths paths = DefaultRegistryPaths(product);
  return SqliteRegistry(paths.user_store, paths.machine_store, std::move(user_agent));
}

}  // namespace

PosixPlatform::PosixPlatform(const std::string& product, std::function<std::string()> user_agent,
                             WindowSearch* display_windows)
    : registry_(MakeRegistry(product, std::move(user_agent))),
      processes_(environment_.ProgramFolder()),
      windows_({&console_titles_, display_windows}),
      ports_{environment_, files_,        profiles_,  registry_,
             clock_,       binary_files_, processes_, windows_} {}

}  // namespace platform::posix

#pragma once

#include <functional>
#include <string>

#include "platform/ports.h"
#include "platform/posix/console_title_search.h"
#include "platform/posix/ini_profile_reader.h"
#include "platform/posix/posix_binary_file.h"
#include "platform/posix/posix_environment.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_processes.h"
#include "platform/posix/sqlite_registry.h"
#include "platform/posix/system_clock.h"

namespace platform::posix {

// Owns the POSIX adapter of every port; a front end makes one and hands ports() to the core.
class PosixPlatform {
 public:
  // product names the folder of the registry stores; user_agent tells what the browser engine
  // calls itself, for the registry's user-agent value, only when that value is read (starting
  // the engine is too dear for every start). The window search sees the job scripts' console
  // titles, and the windows display_windows finds when a front end has a display.
  explicit PosixPlatform(const std::string& product, std::function<std::string()> user_agent = {},
                         WindowSearch* display_windows = nullptr);
  PosixPlatform(const PosixPlatform&) = delete;
  PosixPlatform& operator=(const PosixPlatform&) = delete;

  const Ports& ports() const { return ports_; }

 private:
  PosixEnvironment environment_;
  PosixFileSystem files_;
  IniProfileReader profiles_;
  SqliteRegistry registry_;
  SystemClock clock_;
  PosixBinaryFileOpener binary_files_;
  PosixProcesses processes_;
  ConsoleTitleSearch console_titles_;
  AnyWindowSearch windows_;
  Ports ports_;
};

}  // namespace platform::posix

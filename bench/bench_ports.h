#pragma once

#include <string>

#include "platform/ports.h"
#include "platform/posix/console_title_search.h"
#include "platform/posix/ini_profile_reader.h"
#include "platform/posix/posix_binary_file.h"
#include "platform/posix/posix_environment.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/registry_paths.h"
#include "platform/posix/sqlite_registry.h"
#include "platform/posix/system_clock.h"
#include "platform/processes.h"
#include "settings/product.h"

namespace wavforge::bench {

// Starts nothing: a benchmark measures everything a job does up to starting its script.
class NoProcesses final : public platform::Processes {
 public:
  void StartScript(const std::string&, int) override { ++scripts_; }
  void ShellExecute(const std::string&, const std::string&, const std::string&, int) override {
    ++scripts_;
  }
  bool CanElevate() const override { return false; }
  int scripts() const { return scripts_; }

 private:
  int scripts_ = 0;
};

// The POSIX adapter of every port but the process starter, with the program folder of the
// build, where the fix file lies. Make it after the home is isolated: the registry paths are
// taken from the environment.
class BenchPorts {
 public:
  explicit BenchPorts(const std::string& program_folder)
      : environment_(program_folder),
        registry_(platform::posix::DefaultRegistryPaths(kProductName).user_store,
                  platform::posix::DefaultRegistryPaths(kProductName).machine_store, nullptr),
        ports_{environment_, files_,        profiles_,  registry_,
               clock_,       binary_files_, processes_, windows_} {}
  BenchPorts(const BenchPorts&) = delete;
  BenchPorts& operator=(const BenchPorts&) = delete;

  const platform::Ports& ports() const { return ports_; }
  const NoProcesses& processes() const { return processes_; }

 private:
  platform::posix::PosixEnvironment environment_;
  platform::posix::PosixFileSystem files_;
  platform::posix::IniProfileReader profiles_;
  platform::posix::SqliteRegistry registry_;
  platform::posix::SystemClock clock_;
  platform::posix::PosixBinaryFileOpener binary_files_;
  NoProcesses processes_;
  platform::posix::ConsoleTitleSearch windows_;
  platform::Ports ports_;
};

}  // namespace wavforge::bench

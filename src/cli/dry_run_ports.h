#pragma once

#include "platform/file_system.h"
#include "platform/ports.h"
#include "platform/processes.h"

namespace wavforge::cli {

// Reads go to the real file system; writes, folder creation and deletions report success and
// change nothing. Lets the program show what it would do.
class DryRunFileSystem final : public platform::FileSystem {
 public:
  explicit DryRunFileSystem(platform::FileSystem& real) : real_(real) {}

  std::optional<std::uint64_t> FileSize(const std::string& path) const override {
    return real_.FileSize(path);
  }
  bool PathExists(const std::string& path) const override { return real_.PathExists(path); }
  bool CreateFolder(const std::string&) override { return true; }
  bool CreatePrivateFolder(const std::string&) override { return true; }
  bool CopyFile(const std::string&, const std::string&) override { return true; }
  bool AppendToFile(const std::string&, const std::string&) override { return true; }
  std::error_code WriteFile(const std::string&, const std::string&) override { return {}; }
  std::vector<std::string> ListFiles(const std::string& folder) const override {
    return real_.ListFiles(folder);
  }
  bool DeleteFile(const std::string&) override { return true; }

 private:
  platform::FileSystem& real_;
};

class NoProcesses final : public platform::Processes {
 public:
  void StartScript(const std::string&, int) override {}
  void ShellExecute(const std::string&, const std::string&, const std::string&, int) override {}
  // A dry run never restarts anything.
  bool CanElevate() const override { return false; }
};

// The real ports with the file system and the process starter replaced by the two above.
class DryRunPorts {
 public:
  explicit DryRunPorts(const platform::Ports& real)
      : files_(real.files), ports_{real.environment, files_,      real.profiles,
                                   real.registry,    real.clock,  real.binary_files,
                                   processes_,       real.windows} {}

  const platform::Ports& ports() const { return ports_; }

 private:
  DryRunFileSystem files_;
  NoProcesses processes_;
  platform::Ports ports_;
};

}  // namespace wavforge::cli

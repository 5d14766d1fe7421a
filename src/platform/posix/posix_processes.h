#pragma once

#include <string>
#include <vector>

#include "platform/processes.h"

namespace platform::posix {

// Starts job scripts under wavforge-cmd and opens links with the desktop's opener.
class PosixProcesses final : public Processes {
 public:
  explicit PosixProcesses(std::string program_folder)
      : program_folder_(std::move(program_folder)) {}

  void StartScript(const std::string& command_line, int show_state) override;
  void ShellExecute(const std::string& file, const std::string& parameters,
                    const std::string& directory, int show_state) override;
  bool CanElevate() const override;

 private:
  std::string program_folder_;
};

// Starts a program detached from this one (own session, never waited for): in folder, with
// the given nice increment, and with no terminal when hidden.
void LaunchDetached(const std::vector<std::string>& argv, const std::string& folder, int nice,
                    bool hidden);

}  // namespace platform::posix

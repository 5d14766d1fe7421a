#pragma once

#include <string>
#include <vector>

#include "platform/processes.h"

namespace fakes {

// Records what would have been started.
class FakeProcesses final : public platform::Processes {
 public:
  struct Start {
    std::string command_line;
    int show_state;
  };
  struct Shell {
    std::string file, parameters, directory;
    int show_state;
  };
  std::vector<Start> scripts;
  std::vector<Shell> shell;

  void StartScript(const std::string& command_line, int show_state) override {
    scripts.push_back({command_line, show_state});
  }
  void ShellExecute(const std::string& file, const std::string& parameters,
                    const std::string& directory, int show_state) override {
    shell.push_back({file, parameters, directory, show_state});
  }
  bool can_elevate = true;
  bool CanElevate() const override { return can_elevate; }
};

}  // namespace fakes

#pragma once

#include <optional>
#include <string>
#include <vector>

namespace wavforge::cmd {

// The file a command names: as given when the name holds a "/", else the first executable
// regular file of that name in the folders of PATH. Nothing when there is none.
std::optional<std::string> FindProgram(const std::string& name);

struct LaunchOptions {
  bool wait = true;
  std::optional<int> niceness;  // absolute nice value for the program (best effort)
  std::string folder;           // current folder of the program; empty keeps ours
};

// Runs a program with the current environment and handles. When waiting, gives its exit code
// (128 + signal number when a signal ended it); when not waiting, 0 once it is started, and the
// program is left to init so no zombie stays behind. Nothing when it could not be started.
std::optional<int> LaunchProgram(const std::string& path, const std::vector<std::string>& argv,
                                 const LaunchOptions& options);

}  // namespace wavforge::cmd

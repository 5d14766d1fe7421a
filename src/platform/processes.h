#pragma once

#include <string>

namespace platform {

// Starting other programs. Neither call waits for the program or reports its result.
class Processes {
 public:
  virtual ~Processes() = default;

  // Starts a job script hidden, below normal priority, in the program folder, with this
  // process's environment. The command line names the script.
  virtual void StartScript(const std::string& command_line, int show_state) = 0;

  // Opens a document or link with the desktop's opener, or starts a program with parameters.
  virtual void ShellExecute(const std::string& file, const std::string& parameters,
                            const std::string& directory, int show_state) = 0;

  // True when the program runs without administrator rights but could be restarted with them.
  virtual bool CanElevate() const = 0;
};

}  // namespace platform

#pragma once

#include <string>
#include <vector>

#include "cmd/redirection.h"

namespace wavforge::cmd {

// Puts a command's redirections in force on the interpreter's own handles, so built-in commands
// and started programs (which inherit the handles) write where the line says; the handles are
// restored when this object goes away.
class AppliedRedirections {
 public:
  AppliedRedirections() = default;
  AppliedRedirections(const AppliedRedirections&) = delete;
  AppliedRedirections& operator=(const AppliedRedirections&) = delete;
  ~AppliedRedirections();

  // Applies them in order. On failure the handles are restored, error holds cmd.exe's message
  // and the command must not run.
  bool Apply(const std::vector<Redirection>& redirections, std::string& error);

 private:
  void Save(int handle);
  void Restore();

  struct Saved {
    int handle;
    int copy;  // -1 when the handle was closed before
  };
  std::vector<Saved> saved_;
};

// The file a redirection opens: Windows' NUL device is the null device here.
std::string RedirectionFileName(const std::string& target);

}  // namespace wavforge::cmd

#pragma once

#include <string>

namespace platform {

// Runs a script whose source defines a procedure, then calls it; returns when the call returns.
// Script errors are not reported.
class ScriptControl {
 public:
  virtual ~ScriptControl() = default;
  virtual void Run(const std::string& source, const std::string& statement) = 0;
};

}  // namespace platform

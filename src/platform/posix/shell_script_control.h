#pragma once

#include "platform/script_control.h"

namespace platform {

// Runs the source under /bin/sh followed by the statement, and waits for the shell.
class ShellScriptControl : public ScriptControl {
 public:
  void Run(const std::string& source, const std::string& statement) override;
};

}  // namespace platform

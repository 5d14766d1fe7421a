#pragma once

#include <functional>
#include <string>

namespace wavforge::cmd {

// What the commands of a run share.
struct InterpreterState {
  bool echo_on = true;
  int error_level = 0;
  bool exit_requested = false;
  // Told every new console title.
  std::function<void(const std::string&)> on_title;
};

}  // namespace wavforge::cmd

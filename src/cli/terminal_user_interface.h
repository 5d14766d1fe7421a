#pragma once

#include <ostream>

#include "platform/user_interface.h"

namespace wavforge::cli {

// Message boxes become lines on stderr; a terminal tool has nothing to beep about.
class TerminalUserInterface final : public platform::UserInterface {
 public:
  explicit TerminalUserInterface(std::ostream& err) : err_(err) {}
  void MessageBox(const std::string& text, int style, const std::string& title) override;
  void Beep() override {}

 private:
  std::ostream& err_;
};

}  // namespace wavforge::cli

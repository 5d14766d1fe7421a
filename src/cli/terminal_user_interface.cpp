#include "cli/terminal_user_interface.h"

namespace wavforge::cli {

void TerminalUserInterface::MessageBox(const std::string& text, int /*style*/,
                                       const std::string& title) {
  if (!text.empty()) err_ << "wavforge-cli: " << title << ": " << text << '\n';
}

}  // namespace wavforge::cli

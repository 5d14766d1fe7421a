#pragma once

#include <string>

namespace platform {

// Message box styles, as the Windows constants.
inline constexpr int kCriticalIcon = 16;
inline constexpr int kExclamationIcon = 48;

// What the core asks of whichever front end shows the program.
class UserInterface {
 public:
  virtual ~UserInterface() = default;
  virtual void MessageBox(const std::string& text, int style, const std::string& title) = 0;
  virtual void Beep() = 0;
};

}  // namespace platform

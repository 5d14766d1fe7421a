#pragma once

#include <ostream>

#include "platform/user_interface.h"

namespace wavforge::cli {

// A terminal has no screen to show: message boxes become lines on stderr, there is nothing to
// beep about or point at, and no dialog to answer. Layout questions get the answers of a
// 96-dots-per-inch screen with nothing on it.
class TerminalUserInterface final : public platform::UserInterface {
 public:
  explicit TerminalUserInterface(std::ostream& err) : err_(err) {}
  void MessageBox(const std::string& text, int style, const std::string& title) override;
  // No one to answer at a terminal: the question counts as No.
  bool AskYesNo(const std::string& text, int style, const std::string& title) override {
    MessageBox(text, style, title);
    return false;
  }
  void Beep() override {}
  int MousePointer() const override { return pointer_; }
  void SetMousePointer(int code) override { pointer_ = code; }
  bool GetOpenFileName(const platform::OpenFileRequest& /*request*/,
                       std::string& /*answer*/) override {
    return false;
  }
  double TwipsPerPixelX() const override { return 15.0; }
  double TwipsPerPixelY() const override { return 15.0; }
  platform::ScreenRect WorkArea() const override { return {}; }
  std::string ForegroundWindowName() const override { return {}; }

 private:
  std::ostream& err_;
  int pointer_ = platform::kDefaultPointer;
};

}  // namespace wavforge::cli

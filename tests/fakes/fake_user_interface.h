#pragma once

#include <string>
#include <vector>

#include "platform/user_interface.h"

namespace fakes {

// Records every message box and pointer change instead of showing them; the file dialog is
// cancelled at once.
class FakeUserInterface final : public platform::UserInterface {
 public:
  struct Message {
    std::string text;
    int style;
    std::string title;
  };
  std::vector<Message> messages;
  int pointer = platform::kDefaultPointer;
  std::vector<int> pointer_changes;

  void MessageBox(const std::string& text, int style, const std::string& title) override {
    messages.push_back({text, style, title});
  }
  void Beep() override {}
  int MousePointer() const override { return pointer; }
  void SetMousePointer(int code) override {
    pointer = code;
    pointer_changes.push_back(code);
  }
  bool GetOpenFileName(const platform::OpenFileRequest&, std::string&) override { return false; }
  double TwipsPerPixelX() const override { return 12.0; }
  double TwipsPerPixelY() const override { return 12.0; }
  platform::ScreenRect WorkArea() const override { return {0, 0, 1280, 1024}; }
};

}  // namespace fakes

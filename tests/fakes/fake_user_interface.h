#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/user_interface.h"

namespace fakes {

// Records every message box, beep, pointer change and dialog instead of showing them; the
// dialog gives the answer a test sets, or fails like a cancelled one.
class FakeUserInterface final : public platform::UserInterface {
 public:
  struct Message {
    std::string text;
    int style;
    std::string title;
  };
  std::vector<Message> messages;
  int beeps = 0;
  int pointer = platform::kDefaultPointer;
  std::vector<int> pointer_changes;
  std::vector<platform::OpenFileRequest> dialogs;
  std::optional<std::string> dialog_answer;  // nothing: the user cancels
  double twips_per_pixel_x = 12.0;
  double twips_per_pixel_y = 12.0;
  platform::ScreenRect work_area{0, 0, 1280, 1024};

  void MessageBox(const std::string& text, int style, const std::string& title) override {
    messages.push_back({text, style, title});
  }
  bool yes_answer = false;
  bool AskYesNo(const std::string& text, int style, const std::string& title) override {
    messages.push_back({text, style, title});
    return yes_answer;
  }
  void Beep() override { ++beeps; }
  int MousePointer() const override { return pointer; }
  void SetMousePointer(int code) override {
    pointer = code;
    pointer_changes.push_back(code);
  }
  bool GetOpenFileName(const platform::OpenFileRequest& request, std::string& answer) override {
    dialogs.push_back(request);
    if (!dialog_answer) return false;
    answer = *dialog_answer;
    return true;
  }
  double TwipsPerPixelX() const override { return twips_per_pixel_x; }
  double TwipsPerPixelY() const override { return twips_per_pixel_y; }
  platform::ScreenRect WorkArea() const override { return work_area; }
  std::string ForegroundWindowName() const override { return foreground; }
  std::string foreground;
};

}  // namespace fakes

#pragma once

#include <string>
#include <vector>

#include "platform/user_interface.h"

namespace fakes {

// Records every message box and beep instead of showing them.
class FakeUserInterface final : public platform::UserInterface {
 public:
  struct Message {
    std::string text;
    int style;
    std::string title;
  };
  std::vector<Message> messages;
  int beeps = 0;

  void MessageBox(const std::string& text, int style, const std::string& title) override {
    messages.push_back({text, style, title});
  }
  void Beep() override { ++beeps; }
};

}  // namespace fakes

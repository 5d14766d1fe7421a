#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/user_interface.h"

namespace wavforge::qt {

// The user-interface services on Qt Widgets. Message boxes and the file dialog belong to the
// owner window once one is set.
class QtUserInterface final : public platform::UserInterface {
 public:
  void SetOwner(QWidget* owner) { owner_ = owner; }

  void MessageBox(const std::string& text, int style, const std::string& title) override;
  bool AskYesNo(const std::string& text, int style, const std::string& title) override;
  void Beep() override;
  int MousePointer() const override { return pointer_; }
  void SetMousePointer(int code) override;
  bool GetOpenFileName(const platform::OpenFileRequest& request, std::string& answer) override;
  double TwipsPerPixelX() const override;
  double TwipsPerPixelY() const override;
  platform::ScreenRect WorkArea() const override;
  std::string ForegroundWindowName() const override;

 private:
  QPointer<QWidget> owner_;
  int pointer_ = platform::kDefaultPointer;
  bool override_set_ = false;
};

}  // namespace wavforge::qt

#pragma once

#include <memory>
#include <string>

#include "assistant/frm_wizard.h"
#include "platform/posix/shell_script_control.h"
#include "qt/form_window.h"
#include "shell/help_pages.h"

namespace wavforge::qt {

// The one assistant window of the program: made with its browsers on first use, released when
// it closes, so that the next use makes a fresh one.
class AssistantWindowHolder final : public AssistantWindow {
 public:
  // Its browsers are Qt WebEngine's; downloads go where the registry value the window writes
  // says.
  AssistantWindowHolder(const platform::Ports& ports, platform::UserInterface& ui,
                        ProgramObjects& program);
  ~AssistantWindowHolder() override;

  void SetUrl(const std::string& Url, bool Online) override;
  void UnloadIfLoaded() override;
  // The update check the program starts with, in a hidden window: when asked for on the
  // command line, or when the automatic check is on and due.
  void CheckForUpdatesAtStart(bool asked);

  // The open window, or nullptr.
  frmWizard* Form() const { return form_.get(); }
  FormWindow* Window() const { return window_.get(); }

 private:
  void Ensure();
  void Release();

  const platform::Ports& ports_;
  platform::UserInterface& ui_;
  ProgramObjects& program_;
  platform::ShellScriptControl scripts_;
  std::shared_ptr<frmWizard> form_;
  std::shared_ptr<FormWindow> window_;
  std::shared_ptr<frmWizard> released_form_;
  std::shared_ptr<FormWindow> released_window_;
};

}  // namespace wavforge::qt

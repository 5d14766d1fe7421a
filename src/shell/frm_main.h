#pragma once

#include <string>
#include <vector>

#include "encoding/encode_job.h"
#include "encoding/job_watch.h"
#include "platform/ports.h"
#include "platform/user_interface.h"
#include "shell/help_pages.h"
#include "shell/program_objects.h"
#include "ui/form.h"
#include "ui/form_layout.h"

namespace wavforge {

// Open-file dialog settings of the file selection: no read-only box, several files, each must
// exist, explorer style, long names, nothing added to the recent documents.
inline constexpr unsigned kSelectFileFlags =
    platform::kOfnHideReadOnly | platform::kOfnAllowMultiSelect | platform::kOfnFileMustExist |
    platform::kOfnExplorer | platform::kOfnLongNames | platform::kOfnDontAddToRecent;
inline constexpr std::size_t kSelectFileBufferSize = 32766;

// Show state of a normal window, for the links the window opens.
inline constexpr int kShowNormal = 1;

// The main window: picks the recordings, starts the job, follows it and cleans up after it.
// Everything it does happens in its event handlers; a front end only shows its controls.
class frmMain : public Form, private JobStatusView {
 public:
  // command_line is the text after the program's own name, as a Windows program gets it.
  frmMain(const platform::Ports& ports, platform::UserInterface& ui, ProgramObjects& program,
          std::string command_line);

  // Where F1, F2, F3, F12 and the help line send their pages. Without one they are still
  // taken from the focused control, and nothing opens.
  void SetAssistant(AssistantWindow* assistant) { assistant_ = assistant; }

  void Load() override;
  void Unload() override;
  void Click(Control& control) override;
  void KeyDown(int& key, int shift) override;
  void DragDrop(Control* target, const std::vector<std::string>& files) override;
  void Timer(Control& timer) override;

  // True once the window has been unloaded: the program ends with it.
  bool Unloaded() const { return unloaded_; }
  // The factors the layout was scaled with at load.
  const LayoutScale& Layout() const { return layout_; }

 private:
  void Define();
  void SetStartEnabled(bool enabled) override;
  void ShowStatusPicture(int index) override;
  void OpenAddress(const std::string& key);
  void OpenHelpPage(const HelpPageRequest& request);
  void SelectFiles();
  void Start();

  const platform::Ports& ports_;
  platform::UserInterface& ui_;
  ProgramObjects& program_;
  std::string command_line_;
  EncodingJob job_;
  JobWatch watch_;
  AssistantWindow* assistant_ = nullptr;
  LayoutScale layout_;
  bool handling_key_ = false;
  bool unloaded_ = false;
};

}  // namespace wavforge

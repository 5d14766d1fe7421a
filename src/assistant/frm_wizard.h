#pragma once

#include <functional>
#include <memory>
#include <string>

#include "assistant/browser_control.h"
#include "assistant/cls_forward.h"
#include "assistant/nav_table.h"
#include "assistant/update_check.h"
#include "assistant/update_check_events.h"
#include "platform/ports.h"
#include "platform/script_control.h"
#include "platform/user_interface.h"
#include "shell/program_objects.h"
#include "ui/form.h"

namespace wavforge {

// Where the window keeps the browser's download folder while it is open.
inline constexpr const char* kBrowserSettingsKey = "Software\\Microsoft\\Internet Explorer";
inline constexpr const char* kDownloadDirectoryValue = "Download Directory";

// The assistant window: a small browser for the local and online help, the Assistant pages
// bound to the main window, and the search. Made on first use and released when it closes;
// its browsers are the front end's, reached through the two browser controls.
class frmWizard : public Form, private DocHostUIHandler {
 public:
  frmWizard(const platform::Ports& ports, platform::UserInterface& ui, ProgramObjects& program);
  ~frmWizard() override;

  // Shows the window beside the main window and opens a page of the local or online help.
  void SetUrl(const std::string& Url, bool Online);
  // Starts an update check against that page with the window hidden.
  void SetUpdateURL(const std::string& URL);
  // Clicks on bound page elements and on command elements, reached by name.
  void DispatchControl();
  void DispatchCommand();

  void Load() override;
  void Unload() override;
  void Click(Control& control) override;
  void Change(Control& control) override;
  void KeyDown(int& key, int shift) override;
  void Resize() override;
  void Timer(Control& timer) override;

  // True once the window has closed: its owner releases it, and the next use makes a new one.
  bool Released() const { return released_; }
  // Where the pages of an update check go instead of being shown and bound.
  void SetUpdateCheck(UpdateCheckEvents* update_check);
  // Where the update script runs; without one it does not run.
  void SetScriptControl(platform::ScriptControl* scripts) { scripts_ = scripts; }
  // The elevation check of an update script: true when it took over the program. It asks to
  // restart elevated when the program lacks the rights, and closes the main window after Yes.
  std::function<bool(const std::string&)> RunElevated;

  // State of the window, under the names its pages and tests know.
  bool IsOnline = false;
  bool IsUpdateCheck = false;
  std::string PageFolder;
  std::string SavedDownloadDir;
  NavTable LocalNav;
  NavTable OnlineNav;
  NavTable ActiveNav;
  std::shared_ptr<HtmlDocument> docCurrent;
  int NavigateCompleteCount = 0;

 private:
  class PageEvents;
  class NavEvents;

  void Define();
  BrowserControl* Browser(const char* name) const;
  void Close();
  void ShowTitle(const std::string& text);
  void ShowCommandState(int command, bool enable);
  void PageNavigateComplete(const std::shared_ptr<HtmlDocument>& document);
  void PageDocumentComplete(const std::shared_ptr<HtmlDocument>& document);
  void PageNavigateError();
  void ReadOnlineNavigation(const std::shared_ptr<HtmlDocument>& document);
  void BindPage();
  // The window and control a named element stands for; throws when either is missing.
  std::pair<Form*, Control*> ControlOf(const HtmlElement& element) const;
  Form* WindowOf(const HtmlElement& element) const;

  // The document host answers.
  unsigned ShowContextMenu() override;
  unsigned GetHostInfo(unsigned& flags) override;
  unsigned TranslateAccelerator(int key, int shift) override;
  unsigned GetExternal(void*& external) override;

  const platform::Ports& ports_;
  platform::UserInterface& ui_;
  ProgramObjects& program_;
  std::unique_ptr<PageEvents> page_events_;
  std::unique_ptr<NavEvents> nav_events_;
  std::shared_ptr<clsForward> control_forwarder_;
  std::shared_ptr<clsForward> command_forwarder_;
  std::string base_form_name_;
  UpdateCheckEvents* update_check_ = nullptr;
  std::unique_ptr<UpdateCheck> own_update_check_;
  platform::ScriptControl* scripts_ = nullptr;
  bool handling_key_ = false;
  bool released_ = false;
};

}  // namespace wavforge

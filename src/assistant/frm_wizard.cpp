#include "assistant/frm_wizard.h"

#include <exception>

#include "assistant/page_folder.h"
#include "assistant/whole_number.h"
#include "assistant/window_placement.h"
#include "platform/path_rules.h"
#include "settings/elevation.h"
#include "settings/product.h"
#include "settings/registry_access.h"
#include "settings/system_info.h"
#include "shell/version_label.h"
#include "ui/form_layout.h"
#include "ui/ignoring_errors.h"

namespace wavforge {
namespace {

// The inner area at design, laid out for 12 twips per pixel, and the frame around it.
constexpr double kClientWidth = 7200;
constexpr double kClientHeight = 8400;
constexpr double kFrameWidth = 96;
constexpr double kFrameHeight = 456;
// The top bar and its line reach across any width the window may get.
constexpr double kBarWidth = 28800;
constexpr double kBarHeight = 384;
constexpr int kMinimized = 1;

// The program's name as downloads and the offline page know it.
constexpr const char* kExecutableName = "wavforge";

FontSpec Tahoma() {
  FontSpec font;
  font.Name = "Tahoma";
  font.Size = 7.8;
  return font;
}

bool ToBool(const Form::Argument& argument) {
  if (const auto* number = std::get_if<std::int32_t>(&argument)) return *number != 0;
  const std::string& text = std::get<std::string>(argument);
  if (text == "True" || text == "true") return true;
  if (text == "False" || text == "false") return false;
  throw std::invalid_argument("not a truth value");
}

std::string ToText(const Form::Argument& argument) {
  if (const auto* number = std::get_if<std::int32_t>(&argument)) return std::to_string(*number);
  return std::get<std::string>(argument);
}

}  // namespace

// Events of the visible browser.
class frmWizard::PageEvents final : public BrowserEvents {
 public:
  explicit PageEvents(frmWizard& window) : window_(window) {}
  void TitleChange(const std::string& Text) override { window_.ShowTitle(Text); }
  void CommandStateChange(int Command, bool Enable) override {
    window_.ShowCommandState(Command, Enable);
  }
  void NavigateComplete2(const std::shared_ptr<HtmlDocument>& document,
                         const std::string&) override {
    window_.PageNavigateComplete(document);
  }
  void DocumentComplete(const std::shared_ptr<HtmlDocument>& document,
                        const std::string&) override {
    window_.PageDocumentComplete(document);
  }
  void NavigateError(const std::shared_ptr<HtmlDocument>&, const std::string&, int) override {
    window_.PageNavigateError();
  }

 private:
  frmWizard& window_;
};

// Events of the hidden browser that fetches the online navigation table.
class frmWizard::NavEvents final : public BrowserEvents {
 public:
  explicit NavEvents(frmWizard& window) : window_(window) {}
  void TitleChange(const std::string&) override {}
  void CommandStateChange(int, bool) override {}
  void NavigateComplete2(const std::shared_ptr<HtmlDocument>&, const std::string&) override {}
  void DocumentComplete(const std::shared_ptr<HtmlDocument>& document,
                        const std::string&) override {
    window_.ReadOnlineNavigation(document);
  }
  void NavigateError(const std::shared_ptr<HtmlDocument>&, const std::string&, int) override {
    IgnoringErrors([&] { window_.Browser("objWebBrowser2")->Stop(); });
  }

 private:
  frmWizard& window_;
};

frmWizard::frmWizard(const platform::Ports& ports, platform::UserInterface& ui,
                     ProgramObjects& program)
    : Form("frmWizard"),
      ports_(ports),
      ui_(ui),
      program_(program),
      page_events_(std::make_unique<PageEvents>(*this)),
      nav_events_(std::make_unique<NavEvents>(*this)) {
  Define();
  RunElevated = [this](const std::string& parameter) {
    return ::wavforge::RunElevated(parameter, ports_, ui_, program_.language.Get(), [this] {
      if (Form* main = program_.forms.Find("frmMain")) main->Unload();
    });
  };
  DefineOperation("SetUrl", [this](const std::vector<Argument>& arguments) {
    if (arguments.size() != 2) throw std::invalid_argument("SetUrl takes a page and a flag");
    SetUrl(ToText(arguments[0]), ToBool(arguments[1]));
  });
  DefineOperation("SetUpdateURL", [this](const std::vector<Argument>& arguments) {
    if (arguments.size() != 1) throw std::invalid_argument("SetUpdateURL takes a page");
    SetUpdateURL(ToText(arguments[0]));
  });
  DefineOperation("DispatchControl", [this](const std::vector<Argument>& arguments) {
    if (!arguments.empty()) throw std::invalid_argument("DispatchControl takes nothing");
    DispatchControl();
  });
  DefineOperation("DispatchCommand", [this](const std::vector<Argument>& arguments) {
    if (!arguments.empty()) throw std::invalid_argument("DispatchCommand takes nothing");
    DispatchCommand();
  });
}

frmWizard::~frmWizard() {
  for (const char* name : {"objWebBrowser1", "objWebBrowser2"}) {
    if (BrowserControl* browser = Browser(name)) browser->SetEvents(nullptr);
  }
  program_.forms.Remove(*this);
}

void frmWizard::Define() {
  HelpContextID = 100000;
  KeyPreview = true;
  Sizable = true;
  ScaleWidth = kClientWidth;
  ScaleHeight = kClientHeight;
  Width = kClientWidth + kFrameWidth;
  Height = kClientHeight + kFrameHeight;
  Font = Tahoma();

  const auto add = [this](const char* name, ControlKind kind, const char* container,
                          int index = -1) -> Control& {
    Control& control = Add(name, kind, index);
    control.Container = container;
    control.ZOrder = static_cast<int>(Controls().size());
    if (kind != ControlKind::kImage && kind != ControlKind::kLine) {
      control.WhatsThisHelpID = 0;
      control.ToolTipText = "";
      control.Font = Tahoma();
    }
    return control;
  };

  Control& top = add("picTop", ControlKind::kPictureBox, "");
  top.Move(0, 0, kBarWidth, kBarHeight);
  top.ScaleMode = 1;
  top.BorderStyle = 0;
  top.WhatsThisHelpID = 100100;

  Control& search = add("txtSearch", ControlKind::kTextBox, "picTop");
  search.Move(72, 48, 2100, 288);
  search.Text = "";
  search.WhatsThisHelpID = 100110;

  Control& search_button = add("cmdSearch", ControlKind::kCommandButton, "picTop");
  search_button.Move(2232, 36, 900, 312);
  search_button.Caption = "Search";
  search_button.Enabled = false;
  search_button.WhatsThisHelpID = 100120;

  Control& right = add("picTopRight", ControlKind::kPictureBox, "picTop");
  right.Move(kClientWidth - 3540, 0, 3540, kBarHeight - 12);
  right.ScaleMode = 1;
  right.BorderStyle = 0;

  Control& wizard = add("cmdWizard", ControlKind::kCommandButton, "picTopRight");
  wizard.Move(0, 36, 1080, 312);
  wizard.Caption = "Assistant";
  wizard.WhatsThisHelpID = 100140;

  Control& print = add("cmdPrint", ControlKind::kCommandButton, "picTopRight");
  print.Move(1128, 36, 780, 312);
  print.Caption = "Print";
  print.WhatsThisHelpID = 100150;

  constexpr const char* kMoveTips[] = {"Back to last page", "Forward to next page"};
  for (int index = 0; index < 2; ++index) {
    Control& move = add("cmdMove", ControlKind::kCommandButton, "picTopRight", index);
    move.Move(1956 + 408 * index, 36, 360, 312);
    move.Caption = "";
    move.ToolTipText = kMoveTips[index];
    move.Picture = index == 0 ? "back_disabled" : "forward_disabled";
    move.Enabled = false;
  }

  Control& online = add("cmdOnOffline", ControlKind::kCommandButton, "picTopRight");
  online.Move(2772, 36, 720, 312);
  online.Caption = "Online";
  online.WhatsThisHelpID = 100130;

  constexpr const char* kMovePictures[] = {"back_disabled", "back", "forward_disabled", "forward"};
  for (int index = 0; index < 4; ++index) {
    Control& picture = add("imgMove", ControlKind::kImage, "picTopRight", index);
    picture.Move(0, 0, 240, 240);
    picture.Picture = kMovePictures[index];
    picture.Visible = false;
  }

  Control& line = add("Line1", ControlKind::kLine, "");
  line.X1 = 0;
  line.X2 = kBarWidth;
  line.Y1 = kBarHeight - 12;
  line.Y2 = kBarHeight - 12;
  line.Color = "silver";

  Control& page = add("objWebBrowser1", ControlKind::kBrowser, "");
  page.Move(0, kBarHeight, kClientWidth, kClientHeight - kBarHeight);

  // Fetches the online navigation table and is never shown.
  Control& nav = add("objWebBrowser2", ControlKind::kBrowser, "");
  nav.Visible = false;

  Add("objScriptControl", ControlKind::kScriptControl);

  Control& unload = Add("tmrUnload", ControlKind::kTimer);
  unload.Interval = 15000;
  unload.Enabled = false;
}

BrowserControl* frmWizard::Browser(const char* name) const {
  const Control* control = Find(name);
  return control ? control->Browser : nullptr;
}

void frmWizard::Load() {
  program_.forms.Add(*this);
  for (const char* name : {"objWebBrowser1", "objWebBrowser2"}) {
    if (!Browser(name)) throw std::logic_error("a browser control has no browser");
  }
  Browser("objWebBrowser1")->SetEvents(page_events_.get());
  Browser("objWebBrowser2")->SetEvents(nav_events_.get());

  IgnoringErrors([&] {
    SavedDownloadDir =
        std::get<std::string>(RegRead(ports_.registry, platform::RegistryRoot::kCurrentUser,
                                      kBrowserSettingsKey, kDownloadDirectoryValue, std::string()));
  });
  IgnoringErrors([&] {
    const std::string downloads =
        GetSpecialFolder(ports_.environment, 0, kCommonAppDataFolder, true, false) +
        platform::kPathSeparator + kExecutableName;
    RegWrite(ports_.registry, platform::RegistryRoot::kCurrentUser, kBrowserSettingsKey,
             kDownloadDirectoryValue, downloads);
  });
  Browser("objWebBrowser1")->Navigate("about:blank");
  Browser("objWebBrowser2")->Navigate("about:blank");

  ScaleFormLayout(*this, false, ui_.TwipsPerPixelX(), ui_.TwipsPerPixelY());
  const clsLocalizeControls& language = program_.language.Get();
  language.LocalizeControls(*this);

  Control& online = *Find("cmdOnOffline");
  for (Control* move : Array("cmdMove")) move->Left = *move->Left + online.Width.value_or(0);
  online.Visible = false;

  const std::string program_folder = ports_.environment.ProgramFolder();
  LocalNav = ReadLocalNav(ports_.profiles,
                          program_folder + platform::kPathSeparator + kProductName + ".nav");
  PageFolder = ChoosePageFolder(ports_.files, program_folder, MajorVersion(WAVFORGE_VERSION),
                                program_.settings.Language);

  const std::string online_base = language.FormatMsg("onlinehelp");
  Browser("objWebBrowser1")
      ->SetOfflineFallback({online_base, PageFolder, language.FormatMsg("helpoffline"),
                            language.FormatMsg("helpofflinetext", {online_base}),
                            language.FormatMsg("helpofflinelink")});
  Browser("objWebBrowser2")->Navigate(online_base + kProductName + ".nav");
}

void frmWizard::SetUrl(const std::string& Url, bool Online) {
  IsOnline = Online;
  ActiveNav = Online ? OnlineNav : LocalNav;
  if (!control_forwarder_) {
    control_forwarder_ = std::make_shared<clsForward>();
    command_forwarder_ = std::make_shared<clsForward>();
  }
  control_forwarder_->SetDestination(*this, "DispatchControl");
  command_forwarder_->SetDestination(*this, "DispatchCommand");

  // A minimised window cannot be placed; it opens where it was.
  if (const Form* other = WindowToStandBeside(program_.forms, *this);
      other && WindowState != kMinimized) {
    const WindowBounds half =
        HalfAwayFrom(*other, ui_.WorkArea(), ui_.TwipsPerPixelX(), ui_.TwipsPerPixelY());
    Left = half.left;
    Top = half.top;
    Width = half.width;
    Height = half.height;
  }
  Visible = true;
  ActivateRequested = true;

  IgnoringErrors([&] {
    const std::string base = Online ? program_.language.Get().FormatMsg("onlinehelp") : PageFolder;
    Browser("objWebBrowser1")->Navigate(base + "start.htm?url=" + Url);
  });
}

void frmWizard::KeyDown(int& key, int shift) {
  // A key that comes while another is still being handled goes on to the control.
  if (handling_key_ || shift != 0) return;
  handling_key_ = true;
  struct Clear {
    bool& flag;
    ~Clear() { flag = false; }
  } clear{handling_key_};

  switch (key) {
    case kKeyEscape:
      Close();
      break;
    case kKeyF1:
      key = 0;
      SetUrl("index.htm", IsOnline);
      break;
    case kKeyF2:
      key = 0;
      SetUrl("wizard.htm", IsOnline);
      break;
    case kKeyF3:
      key = 0;
      SetUrl("search.htm", true);
      break;
    default:
      break;
  }
}

void frmWizard::Change(Control& control) {
  if (control.Name() == "txtSearch") {
    Find("cmdSearch")->Enabled = control.Text.value_or("").size() >= 3;
  }
}

void frmWizard::Click(Control& control) {
  const std::string& name = control.Name();
  if (name == "cmdSearch") {
    SetUrl("search.php?s=" + Find("txtSearch")->Text.value_or(""), true);
  } else if (name == "cmdPrint") {
    IgnoringErrors([&] { Browser("objWebBrowser1")->Print(); });
  } else if (name == "cmdWizard") {
    SetUrl("wizard.htm", IsOnline);
  } else if (name == "cmdMove") {
    IgnoringErrors([&] {
      BrowserControl& page = *Browser("objWebBrowser1");
      control.Index() == 0 ? page.GoBack() : page.GoForward();
    });
  }
}

void frmWizard::Resize() {
  if (WindowState == kMinimized) return;
  const double bar = Find("picTop")->Height.value_or(0);
  Find("objWebBrowser1")->Move(0, bar, ScaleWidth, ScaleHeight - bar);
  Control& right = *Find("picTopRight");
  right.Left = ScaleWidth - right.Width.value_or(0);
}

void frmWizard::Timer(Control& timer) {
  if (timer.Name() != "tmrUnload") return;
  timer.Enabled = false;
  Close();
}

void frmWizard::Close() {
  IgnoringErrors([&] { Find("objWebBrowser1")->Visible = false; });
  IgnoringErrors([&] {
    if (SavedDownloadDir.empty()) return;
    RegWrite(ports_.registry, platform::RegistryRoot::kCurrentUser, kBrowserSettingsKey,
             kDownloadDirectoryValue, SavedDownloadDir);
    SavedDownloadDir.clear();
  });
  Visible = false;
  released_ = true;
  program_.forms.Remove(*this);
}

void frmWizard::Unload() {
  if (!released_) Close();
}

void frmWizard::SetUpdateURL(const std::string& URL) {
  IgnoringErrors([&] {
    Visible = false;
    IsUpdateCheck = true;
    if (!own_update_check_) {
      UpdateCheckWindow hooks{
          [this](bool on) { Find("tmrUnload")->Enabled = on; },
          [this] {
            IgnoringErrors([&] { Browser("objWebBrowser1")->Stop(); });
            IgnoringErrors([&] { Browser("objWebBrowser2")->Stop(); });
            Close();
          },
          [this](const std::string& argument) { return RunElevated(argument); }};
      own_update_check_ = std::make_unique<UpdateCheck>(ports_, ui_, scripts_, std::move(hooks));
      SetUpdateCheck(own_update_check_.get());
    }
    const RegistryData agent =
        RegRead(ports_.registry, platform::RegistryRoot::kUsers,
                ".DEFAULT\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings",
                "User Agent", std::string());
    const std::string* text = std::get_if<std::string>(&agent);
    const std::string header = "USER-AGENT:" + (text ? *text : std::string()) + " wavforge " +
                               VersionLabel(WAVFORGE_VERSION) + "\r\n";
    Browser("objWebBrowser1")->Navigate(URL, header);
  });
}

void frmWizard::SetUpdateCheck(UpdateCheckEvents* update_check) {
  update_check_ = update_check;
}

void frmWizard::ShowTitle(const std::string& text) {
  Caption = text == "about:blank" ? program_.language.Get().Text("100000") : text;
}

void frmWizard::ShowCommandState(int command, bool enable) {
  IgnoringErrors([&] {
    if (command == kCscNavigateForward || command == kCscNavigateBack) {
      const int button = command == kCscNavigateForward ? 1 : 0;
      const int picture = button * 2 + (enable ? 1 : 0);
      Control& move = *Find("cmdMove", button);
      move.Enabled = enable;
      move.Picture = Find("imgMove", picture)->Picture;
    } else if (command == kCscUpdateCommands) {
      if (ui_.ForegroundWindowName() == Name() && docCurrent && !docCurrent->hasFocus()) {
        docCurrent->focus();
      }
    }
  });
}

void frmWizard::PageNavigateComplete(const std::shared_ptr<HtmlDocument>& document) {
  IgnoringErrors([&] {
    docCurrent = document;
    if (docCurrent) docCurrent->contextMenuCancelled = true;
    if (IsUpdateCheck) {
      if (update_check_) update_check_->NavigateComplete(document);
      return;
    }
    ++NavigateCompleteCount;
    if (!document) return;
    if (NavigateCompleteCount == 1) {
      document->SetUIHandler(this);
    } else if (NavigateCompleteCount == 2) {
      document->SetUIHandler(nullptr);
    }
  });
}

void frmWizard::PageDocumentComplete(const std::shared_ptr<HtmlDocument>& document) {
  IgnoringErrors([&] {
    if (document) {
      docCurrent = document;
      docCurrent->contextMenuCancelled = true;
    }
    if (IsUpdateCheck) {
      if (update_check_) update_check_->DocumentComplete(docCurrent);
      return;
    }
    if (!docCurrent) return;
    const HtmlElement* version = docCurrent->meta("version");
    const auto number =
        version ? WholeNumber(version->getAttribute("content").value_or("")) : std::nullopt;
    if (number.value_or(0) >= 2) BindPage();
  });
}

void frmWizard::PageNavigateError() {
  if (IsUpdateCheck && update_check_) update_check_->NavigateError();
}

void frmWizard::ReadOnlineNavigation(const std::shared_ptr<HtmlDocument>& document) {
  IgnoringErrors([&] {
    const auto nav = document ? document : Browser("objWebBrowser2")->Document();
    if (!nav || nav->bodyInnerText.empty()) return;
    ReadOnlineNav(nav->bodyInnerText, OnlineNav);
    if (IsOnline) ActiveNav = OnlineNav;
  });
}

unsigned frmWizard::ShowContextMenu() {
  return kNotImplemented;
}

unsigned frmWizard::GetHostInfo(unsigned& flags) {
  flags = kNo3DBorder | kTheme;
  return kOk;
}

unsigned frmWizard::TranslateAccelerator(int /*key*/, int /*shift*/) {
  return kOk;
}

unsigned frmWizard::GetExternal(void*& external) {
  external = nullptr;
  return kOk;
}

}  // namespace wavforge

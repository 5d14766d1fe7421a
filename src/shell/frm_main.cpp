#include "shell/frm_main.h"

#include <algorithm>
#include <exception>

#include "encoding/script_cleanup.h"
#include "platform/path_rules.h"
#include "settings/product.h"
#include "shell/cls_mouse_pointer.h"
#include "shell/open_file_answer.h"
#include "shell/tool_path.h"
#include "shell/version_label.h"
#include "ui/ignoring_errors.h"

namespace wavforge {
namespace {

// The window's inner area at design, laid out for 12 twips per pixel, and its border and
// title bar around it.
constexpr double kClientWidth = 7284;
constexpr double kClientHeight = 5184;
constexpr double kFrameWidth = 96;
constexpr double kFrameHeight = 456;

FontSpec Tahoma(double size, bool bold = false, bool underline = false) {
  FontSpec font;
  font.Name = "Tahoma";
  font.Size = size;
  font.Bold = bold;
  font.Underline = underline;
  return font;
}

FontSpec NamedFont(const char* name, double size) {
  FontSpec font;
  font.Name = name;
  font.Size = size;
  return font;
}

void Place(Control& control, double left, double top, double width, double height) {
  control.Move(left, top, width, height);
}

}  // namespace

frmMain::frmMain(const platform::Ports& ports, platform::UserInterface& ui, ProgramObjects& program,
                 std::string command_line)
    : Form("frmMain"),
      ports_(ports),
      ui_(ui),
      program_(program),
      command_line_(std::move(command_line)),
      job_(ports, ui, program.loader, program.settings, program.language),
      watch_(ports.windows) {
  Define();
}

void frmMain::Define() {
  Caption = "wavforge \xC2\xB7 Larkspur \xC2\xB7 Offline Encoder";
  Tag = "encode";
  HelpContextID = 27100;
  KeyPreview = true;
  AcceptsDrops = true;
  ScaleWidth = kClientWidth;
  ScaleHeight = kClientHeight;
  Width = kClientWidth + kFrameWidth;
  Height = kClientHeight + kFrameHeight;
  Font = Tahoma(7.8);

  // Every control with a help-topic number starts at 0, which the language file skips; only
  // the two that carry a key are translated.
  const auto visible = [this](const char* name, ControlKind kind, int index = -1) -> Control& {
    Control& control = Add(name, kind, index);
    control.WhatsThisHelpID = 0;
    control.ToolTipText = "";
    control.ZOrder = static_cast<int>(Controls().size());
    if (kind != ControlKind::kImage) control.Font = Tahoma(7.8);
    return control;
  };

  Control& options = visible("picOptions", ControlKind::kPictureBox);
  Place(options, 0, 0, 7272, 5172);
  options.ScaleMode = 1;
  options.AcceptsDrops = true;
  options.BorderStyle = 0;

  Control& logo = visible("picLogo", ControlKind::kPictureBox);
  Place(logo, 1920, 480, 2736, 360);
  logo.ScaleMode = 1;
  logo.Picture = "logo";
  logo.BorderStyle = 0;

  Control& help_line = visible("txtlblF1", ControlKind::kTextBox);
  Place(help_line, 900, 4800, 6132, 192);
  help_line.Text = "Help = F1 \xE2\x80\xA2 Assistant = F2";
  help_line.Font = Tahoma(7.2, true);
  help_line.LinkPointer = true;
  help_line.Locked = true;
  help_line.BorderStyle = 0;

  Control& timer = Add("tmrStillWorking", ControlKind::kTimer);
  timer.Interval = 250;

  Control& start = visible("cmdStart", ControlKind::kCommandButton);
  Place(start, 4500, 3480, 1932, 312);
  start.Caption = "Start";
  start.Enabled = false;

  Control& del_temp = visible("chkDelTemp", ControlKind::kCheckBox);
  Place(del_temp, 1020, 3000, 2892, 432);
  del_temp.Caption = "Delete temporary files after encoding";
  del_temp.Value = 0;
  del_temp.WhatsThisHelpID = 5050;

  Control& select = visible("cmdSelectFile", ControlKind::kCommandButton);
  Place(select, 4500, 3060, 1932, 312);
  select.Caption = "Select file(s)";
  select.WhatsThisHelpID = 27110;

  Control& icon = visible("imgIcon", ControlKind::kImage, 0);
  Place(icon, 960, 480, 384, 384);
  icon.Picture = "status0";
  icon.AcceptsDrops = true;
  icon.LinkPointer = true;
  constexpr double kFrameTops[] = {1140, 1560, 1980, 2400};
  for (int frame = 1; frame <= 4; ++frame) {
    Control& store = visible("imgIcon", ControlKind::kImage, frame);
    Place(store, 960, kFrameTops[frame - 1], 384, 384);
    store.Picture = "status" + std::to_string(frame);
    store.Visible = false;
  }

  for (const auto& [index, y] : {std::pair{0, 4020.0}, {2, 1080.0}, {3, 2820.0}}) {
    Control& line = Add("Line1", ControlKind::kLine, index);
    line.X1 = 840;
    line.X2 = 6410;
    line.Y1 = y;
    line.Y2 = y;
    line.Color = "silver";
    line.ZOrder = static_cast<int>(Controls().size());
  }

  Control& home = visible("lblHomePage", ControlKind::kLabel);
  Place(home, 1920, 1560, 4548, 276);
  home.Caption = "wavforge home page";
  home.Font = Tahoma(9, false, true);
  home.LinkPointer = true;

  Control& mail = visible("lblMailTo", ControlKind::kLabel);
  Place(mail, 1920, 1860, 4548, 276);
  mail.Caption = "Write to the authors";
  mail.Font = Tahoma(9, false, true);
  mail.LinkPointer = true;

  Control& about = visible("Label1", ControlKind::kLabel, 33);
  Place(about, 1920, 1260, 4548, 276);
  about.Caption = "Offline encoder of the Larkspur recorder";
  about.Font = Tahoma(9);
  about.AcceptsDrops = true;

  Control& version = visible("lblVersion", ControlKind::kLabel);
  Place(version, 4980, 576, 1272, 312);
  version.Caption = "1.2.345";
  version.Font = NamedFont("Verdana", 13.8);

  Control& notice = visible("Label1", ControlKind::kLabel, 6);
  Place(notice, 1920, 4320, 4488, 336);
  notice.Caption =
      "WMA output is written in the Windows Media Audio format by an external encoder; "
      "Windows Media is a trademark of its owner.";
  notice.Font = NamedFont("Microsoft Sans Serif", 6);
  notice.AcceptsDrops = true;

  Control& stop = visible("cmdStop", ControlKind::kCommandButton);
  Place(stop, 5040, 180, 1932, 312);
  stop.Caption = "Stop";
}

void frmMain::Load() {
  clsMousePointer busy(ui_);
  program_.forms.Add(*this);

  Find("lblVersion")->Caption = VersionLabel(WAVFORGE_VERSION);

  const double twips_x = ui_.TwipsPerPixelX();
  const double twips_y = ui_.TwipsPerPixelY();
  layout_ = LayoutScaleFor(twips_x, twips_y);
  // The window system keeps the border as it is and gives the rest to the inner area.
  const double frame_width = Width - ScaleWidth;
  const double frame_height = Height - ScaleHeight;
  ScaleFormLayout(*this, true, twips_x, twips_y);
  ScaleWidth = Width - frame_width;
  ScaleHeight = Height - frame_height;

  IgnoringErrors([&] { AddToolFolderToPath(ports_); });
  IgnoringErrors([&] {
    program_.loader.LoadSettings(
        program_.settings, [this](bool del_temp) { Find("chkDelTemp")->Value = del_temp ? 1 : 0; });
  });
  IgnoringErrors([&] { program_.language.Get().LocalizeControls(*this); });
  IgnoringErrors([&] { program_.file_list.Clear(); });
  IgnoringErrors([&] { ParseCommandLine(command_line_, program_.file_list); });
  IgnoringErrors([&] {
    Visible = true;
    int front = 0;
    for (const auto& control : Controls()) front = std::max(front, control->ZOrder);
    Find("txtlblF1")->ZOrder = front + 1;
  });
}

void frmMain::Unload() {
  if (unloaded_) return;
  unloaded_ = true;
  IgnoringErrors([&] {
    if (assistant_) assistant_->UnloadIfLoaded();
  });
  // A running job's script goes too, so it ends after its current command; the tools it
  // already started are left to finish.
  IgnoringErrors([&] { DeleteBatchFiles(program_.settings, ports_.files); });
  Visible = false;
  program_.forms.Remove(*this);
}

void frmMain::Click(Control& control) {
  const std::string& name = control.Name();
  if (name == "txtlblF1") {
    if (auto request = HelpPageForKey(kKeyF1, 0, Tag)) OpenHelpPage(*request);
  } else if (name == "imgIcon" || name == "lblHomePage") {
    OpenAddress("homepage");
  } else if (name == "lblMailTo") {
    OpenAddress("email");
  } else if (name == "chkDelTemp") {
    // Only for this run: the settings file is not written.
    program_.settings.DelTemp = control.Value.value_or(0) == 1;
  } else if (name == "cmdSelectFile") {
    SelectFiles();
  } else if (name == "cmdStart") {
    Start();
  } else if (name == "cmdStop") {
    Unload();
  }
}

void frmMain::KeyDown(int& key, int shift) {
  // A key that comes while another is still being handled goes on to the control.
  if (handling_key_) return;
  handling_key_ = true;
  struct Clear {
    bool& flag;
    ~Clear() { flag = false; }
  } clear{handling_key_};

  if (const auto request = HelpPageForKey(key, shift, Tag)) {
    key = 0;
    OpenHelpPage(*request);
  }
}

void frmMain::DragDrop(Control* /*target*/, const std::vector<std::string>& files) {
  // Every drop target of the window ends up here.
  if (files.empty()) {
    ui_.Beep();
    return;
  }
  program_.file_list.Replace(files);
}

void frmMain::Timer(Control& timer) {
  if (timer.Name() == "tmrStillWorking") watch_.Tick(program_.file_list, *this);
}

void frmMain::SetStartEnabled(bool enabled) {
  Find("cmdStart")->Enabled = enabled;
}

void frmMain::ShowStatusPicture(int index) {
  Find("imgIcon", 0)->Picture = Find("imgIcon", index)->Picture;
}

void frmMain::OpenAddress(const std::string& key) {
  ports_.processes.ShellExecute(program_.language.Get().FormatMsg(key), "", "", kShowNormal);
}

void frmMain::OpenHelpPage(const HelpPageRequest& request) {
  if (assistant_) assistant_->SetUrl(request.page, request.online);
}

void frmMain::SelectFiles() {
  const clsLocalizeControls& language = program_.language.Get();
  platform::OpenFileRequest request;
  request.filter = language.FormatMsg("27900", {std::string(1, '\0')});
  request.filter_index = 1;
  request.initial_folder =
      program_.settings.TempPath + platform::kPathSeparator + std::string(kProductName);
  request.title = language.FormatMsg("27910");
  request.flags = kSelectFileFlags;
  request.buffer_size = kSelectFileBufferSize;
  std::string answer;
  if (!ui_.GetOpenFileName(request, answer)) return;
  program_.file_list.Replace(FilesFromDialogAnswer(answer));
}

void frmMain::Start() {
  if (program_.file_list.UpperBound() != -1) {
    job_.EncodeJob(program_.file_list);
  } else {
    ui_.Beep();
  }
}

}  // namespace wavforge

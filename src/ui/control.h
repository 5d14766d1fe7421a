#pragma once

#include <optional>
#include <string>
#include <vector>

namespace wavforge {

class BrowserControl;

enum class ControlKind {
  kPictureBox,
  kTextBox,
  kLabel,
  kCommandButton,
  kCheckBox,
  kImage,
  kLine,
  kTimer,
  kComboBox,
  kTabStrip,
  kMenuItem,
  kBrowser,
  kScriptControl,
};

struct FontSpec {
  std::string Name;
  double Size = 8.25;  // points
  bool Bold = false;
  bool Italic = false;
  bool Underline = false;
};

// One tab of a tab strip; its tooltip text is its localisation key.
struct Tab {
  std::string Caption;
  std::string ToolTipText;
};

// A control of a window as the classic form designer knew it. Positions are in twips of the
// container's coordinates. A property the control's kind does not have stays empty; code that
// walks controls skips what is empty, as a property error skipped a step before.
class Control {
 public:
  Control(std::string name, ControlKind kind, int index = -1)
      : name_(std::move(name)), kind_(kind), index_(index) {}

  const std::string& Name() const { return name_; }
  ControlKind Kind() const { return kind_; }
  // Position in a control array, -1 for a single control.
  int Index() const { return index_; }

  // Moves in one step, as the designer's Move method.
  void Move(double left, double top, double width, double height) {
    Left = left;
    Top = top;
    Width = width;
    Height = height;
  }

  std::optional<double> Left, Top, Width, Height;
  std::optional<double> X1, Y1, X2, Y2;  // lines
  std::optional<FontSpec> Font;
  std::optional<std::string> Caption;      // labels, buttons, check boxes
  std::optional<std::string> Text;         // text boxes, combo boxes
  std::optional<std::string> ToolTipText;  // controls that show a tip
  std::optional<int> WhatsThisHelpID;
  std::optional<int> HelpContextID;  // menu items
  std::optional<int> Value;          // check boxes: 0 unchecked, 1 checked
  std::optional<int> Interval;       // timers, milliseconds
  std::optional<int> ScaleMode;      // picture boxes: 0 user-defined, 1 twips, 3 pixels
  std::optional<double> ScaleLeft, ScaleTop, ScaleWidth, ScaleHeight;
  std::optional<std::string> Picture;  // name of a picture resource
  // The control this one sits in; empty for the window. Positions are in its coordinates.
  std::string Container;
  // Web browser controls: the browser the front end shows it with.
  BrowserControl* Browser = nullptr;
  std::vector<std::string> List;  // combo box entries
  std::vector<Tab> Tabs;          // tab strip
  std::string Color;              // lines: "silver", ...
  bool Enabled = true;
  bool Visible = true;
  bool AcceptsDrops = false;
  bool LinkPointer = false;  // shows the program's own hand pointer
  bool Locked = false;       // text boxes: shown, not edited
  int BorderStyle = 1;       // text boxes and picture boxes: 0 none, 1 fixed single
  int ZOrder = 0;            // larger is in front

 private:
  std::string name_;
  ControlKind kind_;
  int index_;
};

}  // namespace wavforge

#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "ui/control.h"

namespace wavforge {

// Key codes and shift bits of key events, as the classic form events numbered them.
inline constexpr int kKeyEscape = 27;
inline constexpr int kKeyF1 = 112;
inline constexpr int kKeyF2 = 113;
inline constexpr int kKeyF3 = 114;
inline constexpr int kKeyF12 = 123;
inline constexpr int kShiftMask = 1;
inline constexpr int kCtrlMask = 2;
inline constexpr int kAltMask = 4;

// A window without a toolkit: its properties, its controls in window order and the operations
// a page may call by name. Front ends render it and pass user actions in as events; after each
// event they show the properties anew.
class Form {
 public:
  explicit Form(std::string name) : name_(std::move(name)) {}
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& Name() const { return name_; }

  // Window properties. Left, Top, Width and Height are the outer frame on the screen,
  // ScaleWidth and ScaleHeight the inner (client) area, all in twips.
  std::string Caption;
  std::string Tag;
  std::optional<int> HelpContextID;
  double Left = 0, Top = 0, Width = 0, Height = 0, ScaleWidth = 0, ScaleHeight = 0;
  FontSpec Font;
  bool KeyPreview = false;
  bool AcceptsDrops = false;
  bool Visible = false;
  bool Enabled = true;
  // The user may resize the window; the front end reports new sizes through Resize.
  bool Sizable = false;
  // 0 normal, 1 minimised, 2 maximised; the front end keeps it current.
  int WindowState = 0;
  // Stays above other windows.
  bool TopMost = false;

  // Requests a front end carries out after the event that made them, then clears: bring the
  // window to the front and activate it; move the keyboard focus to a control.
  bool ActivateRequested = false;
  Control* FocusRequested = nullptr;

  // Gives a control the focus; throws std::runtime_error when the window or the control is
  // hidden or disabled, as the focus cannot go there.
  void SetFocus(Control& control);

  // Adds a control at the end of the window order.
  Control& Add(std::string name, ControlKind kind, int index = -1);
  const std::vector<std::unique_ptr<Control>>& Controls() const { return controls_; }
  // The control of that name (and index, for control arrays); nullptr when there is none.
  Control* Find(std::string_view name, int index = -1) const;
  // Every element of a control array, by index.
  std::vector<Control*> Array(std::string_view name) const;

  // Operations callable by name; each argument is a text or a whole number. An operation
  // that cannot use its arguments throws std::invalid_argument.
  using Argument = std::variant<std::string, std::int32_t>;
  using Operation = std::function<void(const std::vector<Argument>&)>;
  void DefineOperation(std::string name, Operation operation);
  bool HasOperation(std::string_view name) const;
  // False when the form offers no operation of that name.
  bool CallByName(std::string_view name, const std::vector<Argument>& arguments = {});

  // Events, raised by the front end.
  virtual void Load() {}
  virtual void Unload() {}
  virtual void Click(Control& /*control*/) {}
  // A key press the window sees before its controls; set key to 0 to consume it.
  virtual void KeyDown(int& /*key*/, int /*shift*/) {}
  // Files dropped on the window or on one of its controls (nullptr: the window itself);
  // an empty list means the data held no file names.
  virtual void DragDrop(Control* /*target*/, const std::vector<std::string>& /*files*/) {}
  virtual void Timer(Control& /*timer*/) {}
  // The inner area changed size (ScaleWidth, ScaleHeight) or the window state changed.
  virtual void Resize() {}
  // A text box's text was changed by the user.
  virtual void Change(Control& /*control*/) {}

 private:
  std::string name_;
  std::vector<std::unique_ptr<Control>> controls_;
  std::map<std::string, Operation, std::less<>> operations_;
};

}  // namespace wavforge

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/control.h"

namespace wavforge {

// Key codes and shift bits of key events, as the classic form events numbered them.
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

  // Window properties. Width and Height are the outer size, ScaleWidth and ScaleHeight the
  // inner (client) area, all in twips.
  std::string Caption;
  std::string Tag;
  std::optional<int> HelpContextID;
  double Width = 0, Height = 0, ScaleWidth = 0, ScaleHeight = 0;
  FontSpec Font;
  bool KeyPreview = false;
  bool AcceptsDrops = false;
  bool Visible = false;

  // Adds a control at the end of the window order.
  Control& Add(std::string name, ControlKind kind, int index = -1);
  const std::vector<std::unique_ptr<Control>>& Controls() const { return controls_; }
  // The control of that name (and index, for control arrays); nullptr when there is none.
  Control* Find(std::string_view name, int index = -1) const;
  // Every element of a control array, by index.
  std::vector<Control*> Array(std::string_view name) const;

  // Operations callable by name, with text arguments.
  using Operation = std::function<void(const std::vector<std::string>&)>;
  void DefineOperation(std::string name, Operation operation);
  bool HasOperation(std::string_view name) const;
  // False when the form offers no operation of that name.
  bool CallByName(std::string_view name, const std::vector<std::string>& arguments = {});

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

 private:
  std::string name_;
  std::vector<std::unique_ptr<Control>> controls_;
  std::map<std::string, Operation, std::less<>> operations_;
};

}  // namespace wavforge

#include "ui/form.h"

#include <stdexcept>

#include "settings/text_replace.h"

namespace wavforge {

Control& Form::Add(std::string name, ControlKind kind, int index) {
  controls_.push_back(std::make_unique<Control>(std::move(name), kind, index));
  return *controls_.back();
}

Control* Form::Find(std::string_view name, int index) const {
  const std::string wanted = ToLowerAscii(name);
  for (const auto& control : controls_) {
    if (control->Index() == index && ToLowerAscii(control->Name()) == wanted) {
      return control.get();
    }
  }
  return nullptr;
}

std::vector<Control*> Form::Array(std::string_view name) const {
  const std::string wanted = ToLowerAscii(name);
  std::vector<Control*> elements;
  for (const auto& control : controls_) {
    if (control->Index() >= 0 && ToLowerAscii(control->Name()) == wanted) {
      elements.push_back(control.get());
    }
  }
  return elements;
}

void Form::DefineOperation(std::string name, Operation operation) {
  operations_[ToLowerAscii(name)] = std::move(operation);
}

bool Form::HasOperation(std::string_view name) const {
  return operations_.find(ToLowerAscii(name)) != operations_.end();
}

bool Form::CallByName(std::string_view name, const std::vector<Argument>& arguments) {
  const auto found = operations_.find(ToLowerAscii(name));
  if (found == operations_.end()) return false;
  found->second(arguments);
  return true;
}

void Form::SetFocus(Control& control) {
  if (!Visible || !Enabled || !control.Visible || !control.Enabled) {
    throw std::runtime_error("the control cannot take the focus");
  }
  FocusRequested = &control;
}

}  // namespace wavforge

#pragma once

#include <string>

#include "assistant/html_document.h"
#include "ui/form.h"

namespace wavforge {

// Installed as a page element's click handler: a click calls a named operation of a window.
class clsForward final : public ClickHandler {
 public:
  void SetDestination(Form& oInObject, const std::string& sInMethod);
  // Calls the operation by name without arguments, when a destination is set.
  void DefaultMethod() override;

 private:
  Form* target_ = nullptr;
  std::string method_;
  bool destination_set_ = false;
};

}  // namespace wavforge

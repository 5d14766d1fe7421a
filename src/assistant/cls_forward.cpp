#include "assistant/cls_forward.h"

namespace wavforge {

void clsForward::SetDestination(Form& oInObject, const std::string& sInMethod) {
  target_ = &oInObject;
  method_ = sInMethod;
  destination_set_ = true;
}

void clsForward::DefaultMethod() {
  if (destination_set_) target_->CallByName(method_);
}

}  // namespace wavforge

#include "ui/open_forms.h"

#include <algorithm>

namespace wavforge {

void OpenForms::Add(Form& form) {
  if (std::find(forms_.begin(), forms_.end(), &form) == forms_.end()) forms_.push_back(&form);
}

void OpenForms::Remove(const Form& form) {
  std::erase(forms_, &form);
}

Form* OpenForms::Find(std::string_view name) const {
  for (Form* form : forms_) {
    if (form->Name() == name) return form;
  }
  return nullptr;
}

}  // namespace wavforge

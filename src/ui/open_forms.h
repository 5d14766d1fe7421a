#pragma once

#include <string_view>
#include <vector>

#include "ui/form.h"

namespace wavforge {

// The program's loaded windows in the order they were loaded: where pages find a window by
// name and the assistant finds the window to stand beside.
class OpenForms {
 public:
  void Add(Form& form);
  void Remove(const Form& form);
  const std::vector<Form*>& InLoadOrder() const { return forms_; }
  // The first loaded window of exactly that name (letter case counts); nullptr for none.
  Form* Find(std::string_view name) const;

 private:
  std::vector<Form*> forms_;
};

}  // namespace wavforge

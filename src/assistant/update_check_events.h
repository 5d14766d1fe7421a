#pragma once

#include <memory>

#include "assistant/html_document.h"

namespace wavforge {

// What the assistant window hands on while an update check runs in it instead of showing and
// binding pages.
class UpdateCheckEvents {
 public:
  virtual ~UpdateCheckEvents() = default;
  virtual void NavigateComplete(const std::shared_ptr<HtmlDocument>& document) = 0;
  virtual void DocumentComplete(const std::shared_ptr<HtmlDocument>& document) = 0;
  virtual void NavigateError() = 0;
};

}  // namespace wavforge

#include "assistant/html_document.h"

#include "settings/text_replace.h"

namespace wavforge {
namespace {

bool SameName(std::string_view a, std::string_view b) {
  return ToLowerAscii(a) == ToLowerAscii(b);
}

}  // namespace

bool HtmlElement::hasAttribute(std::string_view attribute) const {
  return getAttribute(attribute).has_value();
}

std::optional<std::string> HtmlElement::getAttribute(std::string_view attribute) const {
  for (const auto& [key, value] : attributes) {
    if (SameName(key, attribute)) return value;
  }
  return std::nullopt;
}

void HtmlElement::setAttribute(std::string_view attribute, std::string value) {
  for (auto& [key, old] : attributes) {
    if (SameName(key, attribute)) {
      old = std::move(value);
      return;
    }
  }
  attributes.emplace_back(std::string(attribute), std::move(value));
}

const HtmlElement* HtmlDocument::meta(std::string_view name_or_id) const {
  for (const HtmlElement& element : metas) {
    if (SameName(element.name, name_or_id) || SameName(element.id(), name_or_id)) {
      return &element;
    }
  }
  return nullptr;
}

HtmlElement* HtmlDocument::getElementById(std::string_view id) {
  for (auto* list : {&all, &metas}) {
    for (HtmlElement& element : *list) {
      if (element.id() == id) return &element;
    }
  }
  return nullptr;
}

HtmlElement* HtmlDocument::activeElement() {
  if (activeElementIndex < 0 || activeElementIndex >= static_cast<int>(all.size())) {
    return nullptr;
  }
  return &all[static_cast<std::size_t>(activeElementIndex)];
}

}  // namespace wavforge

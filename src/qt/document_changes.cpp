#include "qt/document_changes.h"

#include <QJsonArray>
#include <algorithm>

#include "settings/text_replace.h"

namespace wavforge::qt {
namespace {

// Attributes that are new or hold another value; none are ever removed.
QJsonArray ChangedAttributes(const HtmlElement& element,
                             const std::vector<std::pair<std::string, std::string>>& shown) {
  QJsonArray changed;
  for (const auto& [name, value] : element.attributes) {
    const auto same = std::find_if(shown.begin(), shown.end(), [&](const auto& old) {
      return ToLowerAscii(old.first) == ToLowerAscii(name) && old.second == value;
    });
    if (same == shown.end()) {
      changed.append(QJsonArray{QString::fromStdString(name), QString::fromStdString(value)});
    }
  }
  return changed;
}

}  // namespace

void DocumentChanges::Reset(const HtmlDocument& document) {
  elements_.clear();
  for (const HtmlElement& element : document.all) {
    elements_.push_back(
        {element.checked, element.disabled, element.onclick != nullptr, element.attributes});
  }
  menu_cancelled_ = document.contextMenuCancelled;
}

void DocumentChanges::NoteChecked(int index, bool checked) {
  if (index >= 0 && index < static_cast<int>(elements_.size())) {
    elements_[static_cast<std::size_t>(index)].checked = checked;
  }
}

QJsonObject DocumentChanges::Take(const HtmlDocument& document) {
  QJsonObject changes;
  QJsonArray elements;
  const std::size_t count = std::min(document.all.size(), elements_.size());
  for (std::size_t index = 0; index < count; ++index) {
    const HtmlElement& element = document.all[index];
    Shown& shown = elements_[index];
    QJsonObject change;
    if (element.checked != shown.checked) change["checked"] = element.checked;
    if (element.disabled != shown.disabled) change["disabled"] = element.disabled;
    if (const QJsonArray attributes = ChangedAttributes(element, shown.attributes);
        !attributes.isEmpty()) {
      change["attributes"] = attributes;
    }
    if (element.onclick && !shown.clickable) change["click"] = true;
    if (change.isEmpty()) continue;
    change["index"] = static_cast<int>(index);
    elements.append(change);
    // A listener once installed stays; the program decides at the click what it runs.
    shown = {element.checked, element.disabled, shown.clickable || element.onclick != nullptr,
             element.attributes};
  }
  if (!elements.isEmpty()) changes["elements"] = elements;
  if (document.contextMenuCancelled != menu_cancelled_) {
    menu_cancelled_ = document.contextMenuCancelled;
    changes["menuCancelled"] = menu_cancelled_;
  }
  return changes;
}

}  // namespace wavforge::qt

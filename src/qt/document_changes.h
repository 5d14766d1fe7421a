#pragma once

#include <QJsonObject>
#include <string>
#include <utility>
#include <vector>

#include "assistant/html_document.h"

namespace wavforge::qt {

// What the program changed in a page's document since the page last showed it, in the form
// the page's bridge script applies (page_scripts/bridge.js): element states, attributes set,
// click handlers newly installed, the context-menu answer.
class DocumentChanges {
 public:
  // The page shows this document as it is.
  void Reset(const HtmlDocument& document);
  // A click in the page has changed an element's checked state there.
  void NoteChecked(int index, bool checked);
  // The changes since the last call or Reset, from now on counted as shown; empty when none.
  QJsonObject Take(const HtmlDocument& document);

 private:
  struct Shown {
    bool checked = false;
    bool disabled = false;
    bool clickable = false;
    std::vector<std::pair<std::string, std::string>> attributes;
  };
  std::vector<Shown> elements_;
  bool menu_cancelled_ = false;
};

}  // namespace wavforge::qt

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wavforge {

// What a page element calls when it is clicked, as an object installed in its onclick slot.
class ClickHandler {
 public:
  virtual ~ClickHandler() = default;
  virtual void DefaultMethod() = 0;
};

// One element of a loaded page as the program sees it. The browser fills it from the page;
// what the program changes (checked, disabled, attributes, onclick) the browser puts back.
struct HtmlElement {
  std::string tagName;  // upper case, as the page's model reports it: "INPUT", "A", "META"
  std::string name;     // the name property; empty when there is none
  std::string type;     // the type property, lower case: "checkbox", "radio", "button", ...
  bool checked = false;
  bool disabled = false;
  std::string innerHTML;
  // Attributes in the page's order; names compare ignoring letter case.
  std::vector<std::pair<std::string, std::string>> attributes;
  std::shared_ptr<ClickHandler> onclick;

  // The presence test of an attribute (getAttributeNode).
  bool hasAttribute(std::string_view attribute) const;
  // The value, or nothing when the element has no such attribute.
  std::optional<std::string> getAttribute(std::string_view attribute) const;
  // Sets or adds the attribute.
  void setAttribute(std::string_view attribute, std::string value);
  std::string id() const { return getAttribute("id").value_or(""); }
};

// The document host interface a window may install on a page document: how the page's host
// looks and which of the browser's own user-interface requests the window answers itself.
class DocHostUIHandler {
 public:
  virtual ~DocHostUIHandler() = default;
  // Status codes of the answers.
  static constexpr unsigned kOk = 0;
  static constexpr unsigned kNotImplemented = 0x80004001u;
  // Host flags: no sunken border around the page, themed controls.
  static constexpr unsigned kNo3DBorder = 0x00000004u;
  static constexpr unsigned kTheme = 0x00040000u;

  // kOk: the window handled the request and no menu shows; otherwise the browser's default
  // (which the document's own context-menu answer may still cancel).
  virtual unsigned ShowContextMenu() = 0;
  virtual unsigned GetHostInfo(unsigned& flags) = 0;
  // kOk: the key counts as handled, so the browser does not run its own accelerator for it.
  virtual unsigned TranslateAccelerator(int key, int shift) = 0;
  // The object page script sees as its external object; nullptr for none.
  virtual unsigned GetExternal(void*& external) = 0;
};

// A loaded page: its head's metas, the body's elements in document order (the body's `all`
// collection) and the document state the program reads and sets.
class HtmlDocument {
 public:
  std::string URL;
  std::string title;
  std::string bodyInnerText;
  std::string bodyInnerHTML;
  std::vector<HtmlElement> metas;
  std::vector<HtmlElement> all;
  // Index into `all` of the element that has the focus; -1 for the body (none).
  int activeElementIndex = -1;
  bool focused = false;
  // Set by focus(); the browser gives the page the focus and clears it.
  bool focusRequested = false;
  DocHostUIHandler* uiHandler = nullptr;
  // Set by SetUIHandler; the browser applies the handler's answers and clears it.
  bool uiHandlerChanged = false;
  // True once the window answers the document's context-menu event with false: no menu.
  bool contextMenuCancelled = false;

  // The meta element with that name or id among all metas, or nullptr.
  const HtmlElement* meta(std::string_view name_or_id) const;
  // The element with that id, looked for in the body and then among the metas, or nullptr.
  HtmlElement* getElementById(std::string_view id);
  HtmlElement* activeElement();
  bool hasFocus() const { return focused; }
  void focus() { focusRequested = true; }
  // ICustomDoc: installs a handler, or clears it with nullptr.
  void SetUIHandler(DocHostUIHandler* handler) {
    uiHandler = handler;
    uiHandlerChanged = true;
  }
};

}  // namespace wavforge

// The bridge between assistant pages and the program's windows: binding a loaded page, and
// the clicks on its bound and command elements.
#include <stdexcept>

#include "assistant/frm_wizard.h"
#include "assistant/whole_number.h"
#include "platform/path_rules.h"
#include "settings/text_replace.h"

namespace wavforge {
namespace {

constexpr const char* kDefaultBaseForm = "frmMain";

bool IsBindable(const HtmlElement& element) {
  return element.tagName == "INPUT" || element.tagName == "A";
}

bool MirrorsValue(const HtmlElement& element) {
  return element.type == "checkbox" || element.type == "radio";
}

std::vector<std::string> Words(const std::string& text) {
  std::vector<std::string> words;
  std::size_t start = 0;
  while (true) {
    const std::size_t space = text.find(' ', start);
    words.push_back(text.substr(start, space - start));
    if (space == std::string::npos) return words;
    start = space + 1;
  }
}

bool StartsWithIgnoringCase(const std::string& text, std::string_view prefix) {
  return ToLowerAscii(text.substr(0, prefix.size())) == prefix;
}

HtmlElement& ActiveElementOf(const std::shared_ptr<HtmlDocument>& document) {
  HtmlElement* element = document ? document->activeElement() : nullptr;
  if (!element) throw std::runtime_error("no element has the focus");
  return *element;
}

}  // namespace

Form* frmWizard::WindowOf(const HtmlElement& element) const {
  return program_.forms.Find(element.getAttribute("form").value_or(base_form_name_));
}

std::pair<Form*, Control*> frmWizard::ControlOf(const HtmlElement& element) const {
  Form* window = WindowOf(element);
  if (!window) throw std::runtime_error("no open window of that name");
  int index = -1;
  if (const auto attribute = element.getAttribute("index")) {
    const auto number = WholeNumber(*attribute);
    if (!number) throw std::runtime_error("the index is not a number");
    index = *number;
  }
  Control* control = window->Find(element.name, index);
  if (!control) throw std::runtime_error("the window has no such control");
  return {window, control};
}

void frmWizard::BindPage() {
  const HtmlElement* base_form = docCurrent->meta("baseform");
  base_form_name_ = base_form ? base_form->getAttribute("content").value_or("") : kDefaultBaseForm;

  for (HtmlElement& element : docCurrent->all) {
    if (!IsBindable(element)) continue;
    if (element.name.empty()) {
      if (element.hasAttribute("command")) element.onclick = command_forwarder_;
      continue;
    }
    try {
      const auto [window, control] = ControlOf(element);
      element.onclick = control_forwarder_;
      if (MirrorsValue(element)) {
        if (!control->Value) throw std::runtime_error("the control has no value");
        element.checked = *control->Value != 0;
        element.disabled = !control->Enabled;
      }
    } catch (const std::exception&) {
      // Unbound, or bound without its state: the element alone is affected.
    }
    if (!element.hasAttribute("command")) element.setAttribute("command", "click");
  }
}

void frmWizard::DispatchControl() {
  try {
    HtmlElement& element = ActiveElementOf(Browser("objWebBrowser1")->Document());
    const auto [window, control] = ControlOf(element);
    const bool indexed = element.hasAttribute("index");
    const std::string command = ToLowerAscii(element.getAttribute("command").value_or(""));
    if (command == "click") {
      if (!control->Enabled || !control->Visible) {
        ui_.Beep();
        return;
      }
      if (MirrorsValue(element)) {
        const int value = element.checked ? 1 : 0;
        if (control->Value != value) {
          // A changed value acts as the user's click on the control.
          control->Value = value;
          window->Click(*control);
        }
        return;
      }
      TopMost = true;
      window->SetFocus(*control);
      std::vector<Argument> arguments;
      if (indexed) arguments.emplace_back(static_cast<std::int32_t>(control->Index()));
      if (!window->CallByName(element.name + "_click", arguments)) {
        throw std::runtime_error("the window offers no such operation");
      }
      ActivateRequested = true;
    } else if (command == "setfocus") {
      window->SetFocus(*control);
    }
  } catch (const std::exception&) {
    ui_.Beep();
  }
}

void frmWizard::DispatchCommand() {
  std::vector<std::string> words;
  try {
    const HtmlElement& element = ActiveElementOf(Browser("objWebBrowser1")->Document());
    const auto command = element.getAttribute("command");
    if (!command) throw std::runtime_error("the element has no command");
    words = Words(*command);
    if (ToLowerAscii(words[0]) != "go") {
      Form* window = WindowOf(element);
      if (!window || words.size() > 3) return;
      std::vector<Argument> arguments;
      for (std::size_t i = 1; i < words.size(); ++i) {
        if (const auto number = WholeNumber(words[i])) {
          arguments.emplace_back(*number);
        } else {
          arguments.emplace_back(words[i]);
        }
      }
      if (!window->CallByName(words[0], arguments)) {
        throw std::runtime_error("the window offers no such operation");
      }
      return;
    }
  } catch (const std::exception&) {
    ui_.Beep();
    return;
  }

  // "go": stepping through the pages fails silently.
  try {
    if (words.size() < 2) return;
    const std::string& where = words[1];
    if (!StartsWithIgnoringCase(where, "prev") && !StartsWithIgnoringCase(where, "next")) {
      const int position = FindNavKey(ActiveNav, where);
      if (position > 0) SetUrl(ActiveNav[static_cast<std::size_t>(position) - 1].Page, IsOnline);
      return;
    }
    const auto document = Browser("objWebBrowser1")->Document();
    if (!document) return;
    int position = 0;
    {
      const std::string& url = document->URL;
      const char separator = IsOnline ? '/' : platform::kPathSeparator;
      const std::string current = url.substr(url.rfind(separator) + 1);
      const int here = FindNavPage(ActiveNav, current);
      if (StartsWithIgnoringCase(where, "prev")) {
        if (here < 2) return;
        position = here - 1;
      } else {
        if (here == static_cast<int>(ActiveNav.size())) return;
        position = here + 1;
      }
    }
    if (position < 1 || position > static_cast<int>(ActiveNav.size())) return;
    const std::string page = ActiveNav[static_cast<std::size_t>(position) - 1].Page;
    if (page.empty()) return;
    SetUrl(page, IsOnline);
  } catch (const std::exception&) {
  }
}

}  // namespace wavforge

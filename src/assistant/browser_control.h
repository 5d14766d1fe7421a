#pragma once

#include <memory>
#include <string>

#include "assistant/html_document.h"

namespace wavforge {

// Command numbers of CommandStateChange.
inline constexpr int kCscUpdateCommands = -1;
inline constexpr int kCscNavigateForward = 1;
inline constexpr int kCscNavigateBack = 2;

// What a browser reports while it loads. `document` is the document of the page or of the
// frame the event is about (the frame's own, for a frame); nullptr when the event names none.
// After each event the browser puts back into the page what the handler changed in its
// documents: element states, attributes, click handlers, focus and the UI handler.
class BrowserEvents {
 public:
  virtual ~BrowserEvents() = default;
  virtual void TitleChange(const std::string& Text) = 0;
  virtual void CommandStateChange(int Command, bool Enable) = 0;
  virtual void NavigateComplete2(const std::shared_ptr<HtmlDocument>& document,
                                 const std::string& URL) = 0;
  virtual void DocumentComplete(const std::shared_ptr<HtmlDocument>& document,
                                const std::string& URL) = 0;
  virtual void NavigateError(const std::shared_ptr<HtmlDocument>& document, const std::string& URL,
                             int StatusCode) = 0;
};

// When a page below online_base cannot be loaded, the browser shows a page of its own with
// these texts instead of its error page, linking to the same page below local_folder.
struct OfflineFallback {
  std::string online_base;
  std::string local_folder;
  std::string title;
  std::string message;
  std::string link_text;
};

// A web browser control as a window holds it. Calls return at once; what happens next arrives
// later as events, on the same thread. A page element's click runs its onclick handler after
// the browser has made that element the document's active element.
class BrowserControl {
 public:
  virtual ~BrowserControl() = default;
  // Where events go; nullptr stops them.
  virtual void SetEvents(BrowserEvents* events) = 0;
  // Starts loading a URL or a local file path (a query after "?" is kept). Headers is text of
  // "Name:value" lines each ended by CR LF, added to the request.
  virtual void Navigate(const std::string& URL, const std::string& Headers = "") = 0;
  // False when there is nothing to move to.
  virtual bool GoBack() = 0;
  virtual bool GoForward() = 0;
  virtual void Stop() = 0;
  // Prints the page through the desktop's print dialog.
  virtual void Print() = 0;
  // The loaded page; nullptr before a page has loaded.
  virtual std::shared_ptr<HtmlDocument> Document() = 0;
  virtual void SetOfflineFallback(const OfflineFallback& fallback) = 0;
};

}  // namespace wavforge

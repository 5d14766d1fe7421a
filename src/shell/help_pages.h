#pragma once

#include <optional>
#include <string>

namespace wavforge {

// A page of the help the main window asks the assistant window to show.
struct HelpPageRequest {
  std::string page;
  bool online = true;  // false: the local help pages
};

// The page a key of the main window opens, or nothing for a key the window passes on. The
// window's tag names its own help page; only Alt changes anything, and only for F1 and F2.
std::optional<HelpPageRequest> HelpPageForKey(int key, int shift, const std::string& tag);

// The assistant window as the main window sees it: made on first use, gone with the main
// window.
class AssistantWindow {
 public:
  virtual ~AssistantWindow() = default;
  virtual void SetUrl(const std::string& Url, bool Online) = 0;
  // Closes the window when it is open.
  virtual void UnloadIfLoaded() = 0;
};

}  // namespace wavforge

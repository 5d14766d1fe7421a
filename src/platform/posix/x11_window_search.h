#pragma once

#include <cstdint>
#include <vector>

#include "platform/window_search.h"

struct xcb_connection_t;

namespace platform::posix {

// The top-level windows of an X11 display, asked of the server through a connection of its
// own: the window manager's client list (_NET_CLIENT_LIST), or the root's children where no
// window manager keeps one, each by _NET_WM_NAME or else WM_NAME. Without a server it finds
// nothing. On Wayland it sees the X11 (XWayland) windows only.
class X11WindowSearch final : public WindowSearch {
 public:
  // display as for XOpenDisplay; nullptr means $DISPLAY.
  explicit X11WindowSearch(const char* display = nullptr);
  ~X11WindowSearch() override;
  X11WindowSearch(const X11WindowSearch&) = delete;
  X11WindowSearch& operator=(const X11WindowSearch&) = delete;

  bool Connected() const;
  bool AnyWindowTitled(std::span<const char* const> titles) override;

 private:
  xcb_connection_t* connection_ = nullptr;
  std::uint32_t root_ = 0;
  std::uint32_t client_list_ = 0;
  std::uint32_t net_wm_name_ = 0;
  std::uint32_t utf8_string_ = 0;
  // The windows of the previous search, sorted: their titles are asked together with the
  // window list, so a search with no new windows takes one round trip to the server.
  std::vector<std::uint32_t> known_;
};

}  // namespace platform::posix

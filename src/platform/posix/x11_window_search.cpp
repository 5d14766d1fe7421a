#include "platform/posix/x11_window_search.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>
#include <string_view>

#include "platform/window_titles.h"

namespace platform::posix {
namespace {

struct FreeDeleter {
  void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using Owned = std::unique_ptr<T, FreeDeleter>;

// More top-level windows than any session has.
constexpr std::uint32_t kMostWindows = 1u << 16;

// The two title requests of one window, sent before any reply is read.
struct TitleRequest {
  xcb_window_t window;
  xcb_get_property_cookie_t net_wm_name;
  xcb_get_property_cookie_t wm_name;
};

// A window that is gone by now answers with an error, which is just no title.
Owned<xcb_get_property_reply_t> PropertyReply(xcb_connection_t* c,
                                              xcb_get_property_cookie_t cookie) {
  xcb_generic_error_t* error = nullptr;
  Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(c, cookie, &error));
  std::free(error);
  return reply;
}

std::string_view TextOf(const xcb_get_property_reply_t& reply) {
  return {static_cast<const char*>(xcb_get_property_value(&reply)),
          static_cast<std::size_t>(xcb_get_property_value_length(&reply))};
}

}  // namespace

X11WindowSearch::X11WindowSearch(const char* display) {
  int screen_number = 0;
  xcb_connection_t* connection = xcb_connect(display, &screen_number);
  if (xcb_connection_has_error(connection)) {
    xcb_disconnect(connection);
    return;
  }
  xcb_screen_iterator_t screen = xcb_setup_roots_iterator(xcb_get_setup(connection));
  for (int i = 0; i < screen_number && screen.rem > 0; ++i) xcb_screen_next(&screen);
  if (screen.rem == 0) {
    xcb_disconnect(connection);
    return;
  }
  root_ = screen.data->root;
  constexpr const char* kNames[] = {"_NET_CLIENT_LIST", "_NET_WM_NAME", "UTF8_STRING"};
  std::uint32_t* const atoms[] = {&client_list_, &net_wm_name_, &utf8_string_};
  xcb_intern_atom_cookie_t cookies[std::size(kNames)];
  for (std::size_t i = 0; i < std::size(kNames); ++i) {
    cookies[i] = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(std::strlen(kNames[i])),
                                 kNames[i]);
  }
  for (std::size_t i = 0; i < std::size(kNames); ++i) {
    Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookies[i], nullptr));
    *atoms[i] = reply ? reply->atom : std::uint32_t{XCB_ATOM_NONE};
  }
  connection_ = connection;
}

X11WindowSearch::~X11WindowSearch() {
  if (connection_) xcb_disconnect(connection_);
}

bool X11WindowSearch::Connected() const {
  return connection_ && !xcb_connection_has_error(connection_);
}

bool X11WindowSearch::AnyWindowTitled(std::span<const char* const> titles) {
  if (!Connected()) return false;
  xcb_connection_t* const c = connection_;
  // Only the start of each title is fetched: one byte more than the longest wanted title tells
  // a longer title from an equal one.
  const auto words = static_cast<std::uint32_t>((LongestTitle(titles) + 1 + 3) / 4);
  const auto ask_titles = [&](const std::vector<xcb_window_t>& windows) {
    std::vector<TitleRequest> requests;
    requests.reserve(windows.size());
    for (const xcb_window_t window : windows) {
      requests.push_back(
          {window, xcb_get_property(c, 0, window, net_wm_name_, utf8_string_, 0, words),
           xcb_get_property(c, 0, window, XCB_ATOM_WM_NAME, XCB_GET_PROPERTY_TYPE_ANY, 0, words)});
    }
    return requests;
  };

  // Everything is sent before the first reply is read: the window list, both ways, and the
  // titles of the windows the last search saw.
  const auto list_cookie =
      xcb_get_property(c, 0, root_, client_list_, XCB_ATOM_WINDOW, 0, kMostWindows);
  const auto tree_cookie = xcb_query_tree(c, root_);
  std::vector<TitleRequest> requests = ask_titles(known_);

  std::vector<xcb_window_t> windows;
  const auto list = PropertyReply(c, list_cookie);
  xcb_generic_error_t* error = nullptr;
  const Owned<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(c, tree_cookie, &error));
  std::free(error);
  if (list && list->type == XCB_ATOM_WINDOW && list->format == 32) {
    const auto* first = static_cast<const xcb_window_t*>(xcb_get_property_value(list.get()));
    windows.assign(first, first + list->value_len);
  } else if (tree) {
    // No window manager keeps a list: the root's children are the top-level windows.
    const xcb_window_t* first = xcb_query_tree_children(tree.get());
    windows.assign(first, first + xcb_query_tree_children_length(tree.get()));
  }
  std::sort(windows.begin(), windows.end());
  windows.erase(std::unique(windows.begin(), windows.end()), windows.end());

  // Windows that appeared since the last search cost a second round trip.
  std::vector<xcb_window_t> fresh;
  std::set_difference(windows.begin(), windows.end(), known_.begin(), known_.end(),
                      std::back_inserter(fresh));
  std::vector<TitleRequest> more = ask_titles(fresh);
  requests.insert(requests.end(), more.begin(), more.end());
  known_ = windows;

  bool found = false;
  for (const TitleRequest& request : requests) {
    if (found) {
      xcb_discard_reply(c, request.net_wm_name.sequence);
      xcb_discard_reply(c, request.wm_name.sequence);
      continue;
    }
    const auto net_wm_name = PropertyReply(c, request.net_wm_name);
    const auto wm_name = PropertyReply(c, request.wm_name);
    // The UTF-8 name wins where a window has one, as window managers show it.
    const xcb_get_property_reply_t* name =
        net_wm_name && net_wm_name->type == utf8_string_ ? net_wm_name.get() : wm_name.get();
    found = name && name->type != XCB_ATOM_NONE && name->format == 8 && name->bytes_after == 0 &&
            IsOneOfTitles(TextOf(*name), titles) &&
            std::binary_search(windows.begin(), windows.end(), request.window);
  }
  return found;
}

}  // namespace platform::posix

#include "platform/posix/x11_window_search.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include "encoding/job_watch.h"

extern char** environ;

namespace platform::posix {
namespace {

constexpr const char* kXvfb = "/usr/bin/Xvfb";

// An X server of the test's own. It picks a free display number and tells it through a pipe.
class PrivateXServer {
 public:
  PrivateXServer() {
    int pipe_ends[2];
    if (pipe2(pipe_ends, O_CLOEXEC) != 0) return;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipe_ends[1], 3);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    char* const argv[] = {const_cast<char*>("Xvfb"), const_cast<char*>("-displayfd"),
                          const_cast<char*>("3"),    const_cast<char*>("-nolisten"),
                          const_cast<char*>("tcp"),  nullptr};
    if (posix_spawn(&pid_, kXvfb, &actions, nullptr, argv, environ) != 0) pid_ = -1;
    posix_spawn_file_actions_destroy(&actions);
    close(pipe_ends[1]);
    // The number comes first, the line end in a write of its own: the server ends when the pipe
    // closes before that.
    std::string number;
    pollfd ready{pipe_ends[0], POLLIN, 0};
    char buffer[16];
    ssize_t n = 0;
    while (pid_ > 0 && number.find('\n') == std::string::npos && poll(&ready, 1, 20'000) == 1 &&
           (n = read(pipe_ends[0], buffer, sizeof buffer)) > 0) {
      number.append(buffer, static_cast<std::size_t>(n));
    }
    if (number.find('\n') != std::string::npos) {
      display = std::string(":").append(number, 0, number.find('\n'));
    }
    close(pipe_ends[0]);
  }
  ~PrivateXServer() {
    if (pid_ <= 0) return;
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
  }

  std::string display;

 private:
  pid_t pid_ = -1;
};

TEST(X11WindowSearchTest, FindsTopLevelWindowsByTheirWholeTitle) {
  if (access(kXvfb, X_OK) != 0) GTEST_SKIP() << "Xvfb is not installed";
  const PrivateXServer server;
  ASSERT_FALSE(server.display.empty()) << "Xvfb did not start";
  X11WindowSearch search(server.display.c_str());
  ASSERT_TRUE(search.Connected());
  // The other side: a program that opens windows and names them.
  xcb_connection_t* c = xcb_connect(server.display.c_str(), nullptr);
  ASSERT_EQ(xcb_connection_has_error(c), 0);
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
  const auto atom = [c](const char* name) {
    auto* reply = xcb_intern_atom_reply(
        c, xcb_intern_atom(c, 0, static_cast<std::uint16_t>(std::strlen(name)), name), nullptr);
    const xcb_atom_t value = reply->atom;
    std::free(reply);
    return value;
  };
  const xcb_atom_t net_wm_name = atom("_NET_WM_NAME"), utf8 = atom("UTF8_STRING");
  const auto open_window = [&] {
    const xcb_window_t window = xcb_generate_id(c);
    xcb_create_window(c, XCB_COPY_FROM_PARENT, window, root, 0, 0, 10, 10, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    return window;
  };
  const auto name = [&](xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                        const std::string& text) {
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, property, type, 8,
                        static_cast<std::uint32_t>(text.size()), text.data());
  };
  const auto found = [&] {
    std::free(xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));  // all done
    return search.AnyWindowTitled(wavforge::kWatchedTitles);
  };

  const xcb_window_t tool = open_window(), other = open_window();
  EXPECT_FALSE(found());
  name(tool, net_wm_name, utf8, "LAME");
  EXPECT_TRUE(found());
  name(tool, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, "lame");
  name(tool, net_wm_name, utf8, "lame 3.100");  // the UTF-8 name wins
  EXPECT_FALSE(found());
  name(other, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, "larkspur ENCODER");
  EXPECT_TRUE(found());
  // Where a window manager lists its clients, only they count.
  xcb_change_property(c, XCB_PROP_MODE_REPLACE, root, atom("_NET_CLIENT_LIST"), XCB_ATOM_WINDOW, 32,
                      1, &tool);
  EXPECT_FALSE(found());
  name(tool, net_wm_name, utf8, "OggEnc");
  EXPECT_TRUE(found());
  xcb_destroy_window(c, tool);  // still in the list, but gone
  EXPECT_FALSE(found());
  xcb_disconnect(c);
}

}  // namespace
}  // namespace platform::posix

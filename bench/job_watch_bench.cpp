#include "bench/job_watch_bench.h"

#include <benchmark/benchmark.h>
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <cctype>
#include <cstdlib>
#include <memory>
#include <string>

#include "encoding/job_watch.h"
#include "platform/posix/console_title.h"
#include "platform/posix/console_title_search.h"
#include "platform/posix/x11_window_search.h"
#include "shell/file_list.h"
#include "support/sleeping_processes.h"

namespace wavforge::bench {
namespace {

using testing_support::SleepingProcesses;

class NoView final : public JobStatusView {
 public:
  void SetStartEnabled(bool) override {}
  void ShowStatusPicture(int) override {}
};

int UserProcessCount() {
  int count = 0;
  DIR* proc = opendir("/proc");
  if (!proc) return 0;
  while (const dirent* entry = readdir(proc)) {
    struct stat info {};
    if (std::isdigit(static_cast<unsigned char>(entry->d_name[0])) &&
        fstatat(dirfd(proc), entry->d_name, &info, 0) == 0 && info.st_uid == getuid()) {
      ++count;
    }
  }
  closedir(proc);
  return count;
}

// Top-level windows of another program on the display, titled like a desktop's, none of them
// a job's; the root's children are the top-level windows when no window manager runs.
class DesktopWindows {
 public:
  DesktopWindows() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_)) return;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    for (const std::string title : {"Terminal", "lame.txt - Text Editor", "Larkspur Encoder 2",
                                    "Music - Files", "oggenc --help - Terminal", "Mail",
                                    "wavforge · Larkspur · Offline Encoder", "Web Browser"}) {
      const xcb_window_t window = xcb_generate_id(connection_);
      xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window, root, 0, 0, 100, 100, 0,
                        XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
      xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME,
                          XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(title.size()),
                          title.data());
      xcb_map_window(connection_, window);
    }
    std::free(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
    auto* tree = xcb_query_tree_reply(connection_, xcb_query_tree(connection_, root), nullptr);
    if (tree) top_level_ = xcb_query_tree_children_length(tree);
    std::free(tree);
  }
  ~DesktopWindows() { xcb_disconnect(connection_); }
  DesktopWindows(const DesktopWindows&) = delete;
  DesktopWindows& operator=(const DesktopWindows&) = delete;

  int TopLevel() const { return top_level_; }

 private:
  xcb_connection_t* connection_;
  int top_level_ = 0;
};

void JobWatchTickBenchmark(benchmark::State& state, const IsolatedBenchHome& home) {
  const std::string folder = home.Temp() + "/bench-programs";
  SleepingProcesses interpreters(folder, "wavforge-cmd", 2);
  platform::posix::PublishConsoleTitle(interpreters.Pid(0), "Larkspur Encoder (finished)");
  platform::posix::PublishConsoleTitle(interpreters.Pid(1), "cmd");
  const int missing = kUserProcesses - UserProcessCount();
  const SleepingProcesses tools(folder, "lame", missing > 0 ? missing : 0);

  const DesktopWindows desktop;
  platform::posix::ConsoleTitleSearch console_titles;
  platform::posix::X11WindowSearch display_windows;
  if (!display_windows.Connected()) state.SetLabel("no X display: console titles only");
  platform::AnyWindowSearch windows({&console_titles, &display_windows});
  JobWatch watch(windows);
  NoView view;
  const FileList selection({"/music/a.wav"});
  if (watch.Tick(selection, view)) state.SkipWithError("a job window was found");
  for (auto _ : state) {
    benchmark::DoNotOptimize(watch.Tick(selection, view));
  }
  state.counters["user_processes"] = UserProcessCount();
  state.counters["x_windows"] = display_windows.Connected() ? desktop.TopLevel() : 0;
}

}  // namespace

void RegisterJobWatchBenchmark(const IsolatedBenchHome& home) {
  benchmark::RegisterBenchmark(
      kJobWatchTickBenchmark,
      [&home](benchmark::State& state) { JobWatchTickBenchmark(state, home); })
      ->Unit(benchmark::kMicrosecond)
      ->UseRealTime();
}

}  // namespace wavforge::bench

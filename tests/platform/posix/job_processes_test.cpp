#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "encoding/job_watch.h"
#include "encoding/script_cleanup.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_processes.h"
#include "platform/posix/proc_window_search.h"
#include "support/isolated_home.h"

namespace platform::posix {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing_support::ReadFile;
using testing_support::WriteFile;

bool HasTitle(ProcWindowSearch& search, const std::string& title) {
  const auto titles = search.WindowTitles();
  return std::find(titles.begin(), titles.end(), title) != titles.end();
}

template <typename Condition>
bool WaitFor(Condition condition, std::chrono::milliseconds limit = 10s) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (std::chrono::steady_clock::now() < end) {
    if (condition()) return true;
    std::this_thread::sleep_for(20ms);
  }
  return condition();
}

// Runs a copy of sleep under another name, as a tool that shows a window of that title.
class NamedProcess {
 public:
  NamedProcess(const fs::path& folder, const std::string& name) {
    const fs::path program = folder / name;
    fs::copy_file("/bin/sleep", program);
    pid_ = fork();
    if (pid_ == 0) {
      execl(program.c_str(), name.c_str(), "30", static_cast<char*>(nullptr));
      _exit(127);
    }
  }
  ~NamedProcess() { Stop(); }
  void Stop() {
    if (pid_ <= 0) return;
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
    pid_ = -1;
  }

 private:
  pid_t pid_ = -1;
};

class JobProcessesTest : public testing_support::IsolatedHomeTest {
 protected:
  void SetUp() override {
    IsolatedHomeTest::SetUp();
    program = Root() / "program";
    fs::create_directories(program);
    fs::copy_file(WAVFORGE_CMD_PATH, program / "wavforge-cmd");
  }

  fs::path program;
  ProcWindowSearch search;
};

// "ssrc" because no other test runs a tool of that name at the same time.
TEST_F(JobProcessesTest, AProgramNamedLikeAToolIsAWindowOfThatTitle) {
  EXPECT_FALSE(HasTitle(search, "ssrc"));
  NamedProcess ssrc(Root(), "ssrc");
  EXPECT_TRUE(WaitFor([&] { return HasTitle(search, "ssrc"); }));
  ssrc.Stop();
  EXPECT_FALSE(HasTitle(search, "ssrc"));
}

TEST_F(JobProcessesTest, StartedScriptRunsDetachedBelowNormalPriorityInTheProgramFolder) {
  const fs::path report = Root() / "report.txt";
  const fs::path script = TempFolder() / "Larkspur 1.bat";
  WriteFile(script,
            "title Larkspur Encoder\r\n"
            "sh -c \"pwd; nice; ps -o sid= -p $$\" >\"" +
                report.string() +
                "\"\r\n"
                "del \"%0\"");
  PosixProcesses processes(program.string());
  processes.StartScript(script.string(), 0);
  ASSERT_TRUE(WaitFor([&] { return !fs::exists(script); }));
  const std::string text = ReadFile(report);
  const std::string own_session = std::to_string(getsid(0));
  EXPECT_EQ(text.substr(0, text.find('\n')), program.string()) << text;
  EXPECT_NE(text.find("\n10\n"), std::string::npos) << text;
  EXPECT_EQ(text.find(" " + own_session + "\n"), std::string::npos) << text;
}

TEST_F(JobProcessesTest, TheWatchFollowsARealJobAndItsCleanUpStopsTheScript) {
  const fs::path marker = Root() / "after.txt";
  const fs::path script = TempFolder() / "Larkspur120000.bat";
  WriteFile(script, "title Larkspur Encoder\r\nsleep 1\r\necho late >\"" + marker.string() +
                        "\"\r\ndel \"%0\"");
  wavforge::Settings settings;
  settings.TempPath = TempFolder().string();
  PosixFileSystem files;
  PosixProcesses processes(program.string());
  wavforge::JobWatch watch(search);
  struct : wavforge::JobStatusView {
    bool enabled = true;
    void SetStartEnabled(bool value) override { enabled = value; }
    void ShowStatusPicture(int) override {}
  } view;
  const wavforge::FileList selection({"/rec/next.wav"});

  processes.StartScript(script.string(), 0);
  ASSERT_TRUE(WaitFor([&] { return watch.Tick(selection, view); }));
  EXPECT_FALSE(view.enabled);
  // The window closes while the job runs: the scripts go, the command in progress finishes.
  wavforge::DeleteBatchFiles(settings, files);
  EXPECT_FALSE(fs::exists(script));
  EXPECT_TRUE(WaitFor([&] { return !watch.Tick(selection, view); }));
  EXPECT_TRUE(view.enabled);
  EXPECT_FALSE(fs::exists(marker));
}

}  // namespace
}  // namespace platform::posix

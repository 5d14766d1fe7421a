#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <sstream>
#include <string>
#include <thread>
#include <tuple>

#include "encoding/job_watch.h"
#include "platform/posix/console_title.h"
#include "platform/posix/console_title_search.h"
#include "platform/posix/posix_processes.h"
#include "support/isolated_home.h"
#include "support/sleeping_processes.h"

namespace platform::posix {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing_support::ReadFile;
using testing_support::WriteFile;

template <typename Condition>
bool WaitFor(Condition condition, std::chrono::milliseconds limit = 10s) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (std::chrono::steady_clock::now() < end) {
    if (condition()) return true;
    std::this_thread::sleep_for(20ms);
  }
  return condition();
}

class JobProcessesTest : public testing_support::IsolatedHomeTest {
 protected:
  void SetUp() override {
    IsolatedHomeTest::SetUp();
    program = Root() / "program";
    fs::create_directories(program);
    fs::copy_file(WAVFORGE_CMD_PATH, program / "wavforge-cmd");
  }

  bool AnyJobWindow() { return search.AnyWindowTitled(wavforge::kWatchedTitles); }

  fs::path program;
  ConsoleTitleSearch search;
};

// Stand-ins that only look like interpreters to the search; the real one runs in the next test.
TEST_F(JobProcessesTest, OnlyTheTitleOfALiveInterpreterIsAWindow) {
  testing_support::SleepingProcesses interpreter(Root(), "wavforge-cmd", 1);
  const testing_support::SleepingProcesses tool(Root(), "lame", 1);
  const pid_t pid = interpreter.Pid(0);
  const std::tuple<pid_t, const char*, bool> cases[] = {
      {pid, "LARKSPUR encoder", true},
      {pid, "oggenc", true},
      {pid, "CScript", true},
      {pid, "Larkspur Encoder - done", false},
      {pid, " lame", false},
      {tool.Pid(0), "lame", false},  // a title file, but not of an interpreter
  };
  for (const auto& [writer, title, counts] : cases) {
    ASSERT_TRUE(PublishConsoleTitle(writer, title));
    EXPECT_EQ(AnyJobWindow(), counts) << title;
    ClearConsoleTitle(writer);
  }
  // Killed outright, an interpreter leaves its title behind: it no longer counts, and goes.
  ASSERT_TRUE(PublishConsoleTitle(pid, "Larkspur Encoder"));
  interpreter.Stop();
  EXPECT_FALSE(AnyJobWindow());
  EXPECT_EQ(ReadConsoleTitle(pid), std::nullopt);
}

TEST_F(JobProcessesTest, StartedScriptRunsDetachedBelowNormalPriorityInTheProgramFolder) {
  const fs::path report = Root() / "report.txt";
  const fs::path script = TempFolder() / "Larkspur 1.bat";
  WriteFile(script,
            "title Larkspur Encoder\r\n"
            "sh -c \"pwd; nice; cut -d' ' -f6 /proc/$$/stat\" >\"" +
                report.string() +
                "\"\r\n"
                "del \"%0\"");
  PosixProcesses processes(program.string());
  processes.StartScript(script.string(), 0);
  ASSERT_TRUE(WaitFor([&] { return !fs::exists(script); }));
  // The folder, the niceness and the session of a command of the script.
  std::istringstream lines(ReadFile(report));
  std::string folder, nice, session;
  for (std::string* line : {&folder, &nice, &session}) std::getline(lines, *line);
  EXPECT_EQ(folder, program.string());
  EXPECT_EQ(nice, "10");
  EXPECT_NE(session, std::to_string(getsid(0)));
  EXPECT_FALSE(session.empty());
}

}  // namespace
}  // namespace platform::posix

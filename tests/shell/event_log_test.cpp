#include "shell/event_log.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "fakes/fake_clock.h"
#include "platform/posix/posix_file_system.h"
#include "support/isolated_home.h"

namespace wavforge {
namespace {

namespace fs = std::filesystem;
using testing_support::ReadFile;

class EventLogTest : public testing_support::IsolatedHomeTest {
 protected:
  void SetUp() override {
    IsolatedHomeTest::SetUp();
    settings.LogToFile = true;
    settings.LogFilePath = (Root() / "log").string();
    fs::create_directories(Root() / "log");
  }
  std::string Log(const char* name) const { return ReadFile(Root() / "log" / name); }

  Settings settings;
  platform::posix::PosixFileSystem files;
  fakes::FakeClock clock{{2026, 11, 19, 14, 5, 9}};
};

TEST_F(EventLogTest, WritesOneLinePerCallWithLineBreaksAsTabs) {
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"MP3 ", "Band - Song"}, "MP3 \tBand - Song"},
      {{}, ""},
      {{"a\n\n\nb"}, "a\t\tb"},
      {{"a\rb", "c\n"}, "ab\tc\t"},
  };
  for (const auto& [arguments, line] : cases) {
    fs::remove(Root() / "log" / "20261119.log");
    WriteLog(settings, files, clock, arguments);
    EXPECT_EQ(Log("20261119.log"), "14:05:09\t" + line + "\r\n");
  }
}

TEST_F(EventLogTest, AppendsAndStartsANewFileEachDay) {
  WriteLog(settings, files, clock, {"one"});
  WriteLog(settings, files, clock, {"two"});
  clock.Set({2026, 11, 20, 0, 0, 1});
  WriteLog(settings, files, clock, {"three"});
  EXPECT_EQ(Log("20261119.log"), "14:05:09\tone\r\n14:05:09\ttwo\r\n");
  EXPECT_EQ(Log("20261120.log"), "00:00:01\tthree\r\n");
}

TEST_F(EventLogTest, WritesNothingWhenOffOrWhenTheFolderIsMissing) {
  settings.LogToFile = false;
  WriteLog(settings, files, clock, {"x"});
  EXPECT_TRUE(fs::is_empty(Root() / "log"));
  settings.LogToFile = true;
  settings.LogFilePath = (Root() / "missing").string();
  WriteLog(settings, files, clock, {"x"});
  EXPECT_FALSE(fs::exists(Root() / "missing"));
}

}  // namespace
}  // namespace wavforge

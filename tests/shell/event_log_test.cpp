#include "shell/event_log.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/fake_clock.h"
#include "fakes/fake_file_system.h"

namespace wavforge {
namespace {

TEST(EventLogTest, WritesOneLinePerCallWithLineBreaksAsTabs) {
  Settings settings;
  settings.LogToFile = true;
  settings.LogFilePath = "/log";
  const fakes::FakeClock clock({2026, 11, 19, 14, 5, 9});
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"MP3 ", "Band - Song"}, "MP3 \tBand - Song"},
      {{}, ""},
      {{"a\n\n\nb"}, "a\t\tb"},
      {{"a\rb", "c\n"}, "ab\tc\t"},
  };
  for (const auto& [arguments, line] : cases) {
    fakes::FakeFileSystem files;
    files.AddFolder("/log");
    WriteLog(settings, files, clock, arguments);
    EXPECT_EQ(files.Contents("/log/20261119.log"), "14:05:09\t" + line + "\r\n");
  }
}

}  // namespace
}  // namespace wavforge

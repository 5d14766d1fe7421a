#include "settings/placeholders.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/fake_clock.h"
#include "fakes/fake_environment.h"
#include "fakes/fake_processes.h"
#include "fakes/fake_registry.h"
#include "fakes/fake_window_search.h"
#include "fakes/memory_binary_files.h"
#include "fakes/memory_profile_reader.h"
#include "platform/posix/posix_file_system.h"
#include "settings/registry_access.h"

namespace wavforge {
namespace {

class PlaceholdersTest : public ::testing::Test {
 protected:
  PlaceholdersTest() {
    environment.folders = {{0, "/home/u/Desktop"},  {5, "/home/u/Documents"},
                           {13, "/home/u/Music"},   {14, "/home/u/Videos"},
                           {26, "/home/u/.config"}, {39, "/home/u/Pictures"}};
  }

  void SetUserTemp(const std::string& name, const std::string& value) {
    ASSERT_TRUE(RegWrite(registry, platform::RegistryRoot::kCurrentUser, "Environment", name,
                         RegistryData{value}));
  }

  std::string Expand(const std::string& text) { return ExpandPlaceholders(text, ports); }

  fakes::FakeEnvironment environment;
  fakes::FakeRegistry registry;
  fakes::FakeClock clock;
  fakes::MemoryProfileReader profiles;
  platform::posix::PosixFileSystem files;
  fakes::MemoryBinaryFiles binary_files;
  fakes::FakeProcesses processes;
  fakes::FakeWindowSearch windows;
  platform::Ports ports{environment, files,        profiles,  registry,
                        clock,       binary_files, processes, windows};
};

TEST_F(PlaceholdersTest, ExpandsFoldersLineFeedsAndTheEnvironment) {
  environment.variables = {{"TEMP", "/env/temp"}, {"UserProfile", "/home/anna.smith"}};
  const std::pair<const char*, const char*> cases[] = {
      {"%temp%", "/env/temp"},  // no user value in the registry: the environment has TEMP
      {"%NoSuchVariable%/x", "%NoSuchVariable%/x"},
      {"a%LF%b%lf%", "a\r\nb\r\n"},
      {"  %AppDir%/x  ", "/opt/wavforge/x"},
      {"    ", ""},
      {"%MyDocuments%|%mymusic%|%MyPictures%|%MyVideo%|%AppData%",
       "/home/u/Documents|/home/u/Music|/home/u/Pictures|/home/u/Videos|/home/u/.config"},
      {"%UserProfileName%", "anna"},
      {"//server/share//file", "//server/share/file"},  // a leading pair survives
      {"%MyMusic%//Jazz", "/home/u/Music/Jazz"},
  };
  for (const auto& [input, expected] : cases) EXPECT_EQ(Expand(input), expected) << input;
}

TEST_F(PlaceholdersTest, DateAndTimePartsHaveTwoDigits) {
  clock.Set({2026, 1, 2, 3, 4, 5});
  EXPECT_EQ(Expand("%Year%%Month%%Day%-%hour%%MIN%%sec% %Date% %Time%|%Now%"),
            "20260102-030405 2026-01-02 03:04:05|2026-01-02 03:04:05");
  clock.Set({2009, 1, 2, 23, 59, 58});
  EXPECT_EQ(Expand("%Year2%"), "09");
}

TEST_F(PlaceholdersTest, UserTempValueFromRegistryIsCompletedByTheEnvironment) {
  environment.variables = {{"USERPROFILE", "/home/u"}, {"TEMP", "/not/used"}};
  SetUserTemp("Temp", "%UserProfile%/AppData/Local/Temp");
  SetUserTemp("Tmp", "/reg/tmp");
  EXPECT_EQ(Expand("%Temp%|%TMP%"), "/home/u/AppData/Local/Temp|/reg/tmp");
}

TEST_F(PlaceholdersTest, LaterStepsSeeEarlierReplacementsButAStepDoesNotRescanItsOwn) {
  // The registry value holds a placeholder of a later step: that step expands it.
  SetUserTemp("Temp", "%AppData%/tmp");
  EXPECT_EQ(Expand("%Temp%"), "/home/u/.config/tmp");
  // A folder whose own name looks like its placeholder is inserted once and left alone.
  environment.folders[13] = "/m/%MyMusic%";
  EXPECT_EQ(Expand("%MyMusic%"), "/m/%MyMusic%");
}

TEST_F(PlaceholdersTest, EveryCallMakesEveryFolderItCouldInsert) {
  Expand("plain text");
  ASSERT_EQ(environment.folder_requests.size(), 5u);
  for (const auto& [id, create] : environment.folder_requests) EXPECT_TRUE(create) << id;
}

TEST_F(PlaceholdersTest, EachTimePartReadsTheClockItself) {
  // The hour is the eighth reading and the minute the ninth; the hour turns in between, so
  // the text mixes the two moments.
  std::vector<platform::LocalTime> times(8, {2026, 11, 23, 9, 59, 59});
  times.push_back({2026, 11, 23, 10, 0, 0});
  clock = fakes::FakeClock(times);
  EXPECT_EQ(Expand("%Hour%:%Min%"), "09:00");
}

TEST_F(PlaceholdersTest, OverlongTextIsCutToTheBuffer) {
  const std::string result = Expand(std::string(40000, 'x'));
  EXPECT_EQ(result.size(), 32766u);
}

}  // namespace
}  // namespace wavforge

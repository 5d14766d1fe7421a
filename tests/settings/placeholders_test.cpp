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

struct ExpandCase {
  const char* name;
  std::string input;
  std::string expected;
};

class PlaceholderTableTest : public PlaceholdersTest,
                             public ::testing::WithParamInterface<ExpandCase> {};

TEST_P(PlaceholderTableTest, Expands) {
  environment.variables = {{"TEMP", "/env/temp"}, {"UserProfile", "/home/anna.smith"}};
  EXPECT_EQ(Expand(GetParam().input), GetParam().expected) << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(
    Table, PlaceholderTableTest,
    ::testing::Values(
        // No user value in the registry: the environment step finds TEMP.
        ExpandCase{"temp lower case", "%temp%", "/env/temp"},
        ExpandCase{"unknown stays", "%NoSuchVariable%/x", "%NoSuchVariable%/x"},
        ExpandCase{"line feed", "a%LF%b%lf%", "a\r\nb\r\n"},
        ExpandCase{"outer spaces", "  %AppDir%/x  ", "/opt/wavforge/x"},
        ExpandCase{"only spaces", "    ", ""},
        ExpandCase{"folders", "%MyDocuments%|%mymusic%|%MyPictures%|%MyVideo%|%AppData%",
                   "/home/u/Documents|/home/u/Music|/home/u/Pictures|/home/u/Videos|"
                   "/home/u/.config"},
        ExpandCase{"profile name", "%UserProfileName%", "anna"},
        ExpandCase{"leading pair survives", "//server/share//file", "//server/share/file"},
        ExpandCase{"inner pair merged", "/data//rec/x", "/data/rec/x"},
        ExpandCase{"pair from a join", "%MyMusic%//Jazz", "/home/u/Music/Jazz"}));

struct ClockCase {
  platform::LocalTime time;
  std::string input;
  std::string expected;
};

class ClockPlaceholderTest : public PlaceholdersTest,
                             public ::testing::WithParamInterface<ClockCase> {};

TEST_P(ClockPlaceholderTest, UsesTwoDigitParts) {
  clock.Set(GetParam().time);
  EXPECT_EQ(Expand(GetParam().input), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ClockPlaceholderTest,
    ::testing::Values(
        ClockCase{{2026, 1, 2, 3, 4, 5}, "%Year%%Month%%Day%-%hour%%MIN%%sec%", "20260102-030405"},
        ClockCase{{2009, 1, 2, 23, 59, 58}, "%Year2%", "09"},
        ClockCase{{2026, 1, 2, 3, 4, 5}, "%Date% %Time%", "2026-01-02 03:04:05"},
        ClockCase{{2026, 1, 2, 3, 4, 5}, "%Now%", "2026-01-02 03:04:05"}));

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

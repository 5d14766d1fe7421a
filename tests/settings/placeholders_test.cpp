#include "settings/placeholders.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/fake_ports.h"
#include "settings/registry_access.h"

namespace wavforge {
namespace {

class PlaceholdersTest : public ::testing::Test, protected fakes::FakePorts {
 protected:
  PlaceholdersTest() {
    environment.folders = {{0, "/home/u/Desktop"},  {5, "/home/u/Documents"},
                           {13, "/home/u/Music"},   {14, "/home/u/Videos"},
                           {26, "/home/u/.config"}, {39, "/home/u/Pictures"}};
    clock.Set({2009, 1, 2, 3, 4, 5});
  }

  std::string Expand(const std::string& text) { return ExpandPlaceholders(text, ports); }
};

TEST_F(PlaceholdersTest, ExpandsFoldersTimesLineFeedsAndTheEnvironment) {
  environment.variables = {{"TEMP", "/env/temp"}, {"UserProfile", "/home/anna.smith"}};
  const std::pair<const char*, const char*> cases[] = {
      {"%temp%", "/env/temp"},  // no user value in the registry: the environment has TEMP
      {"%NoSuchVariable%/x", "%NoSuchVariable%/x"},
      {"a%LF%b%lf%", "a\r\nb\r\n"},
      {"  %AppDir%/x  ", "/opt/wavforge/x"},
      {"%MyDocuments%|%mymusic%|%MyPictures%|%MyVideo%|%AppData%",
       "/home/u/Documents|/home/u/Music|/home/u/Pictures|/home/u/Videos|/home/u/.config"},
      {"%UserProfileName%", "anna"},
      {"//server/share//file", "//server/share/file"},  // a leading pair survives
      {"%MyMusic%//Jazz", "/home/u/Music/Jazz"},
      {"%Year%%Month%%Day%-%hour%%MIN%%sec% %Date% %Time%|%Now%|%Year2%",
       "20090102-030405 2009-01-02 03:04:05|2009-01-02 03:04:05|09"},
  };
  for (const auto& [input, expected] : cases) EXPECT_EQ(Expand(input), expected) << input;
}

TEST_F(PlaceholdersTest, UserTempValueFromRegistryIsCompletedByTheEnvironment) {
  environment.variables = {{"USERPROFILE", "/home/u"}, {"TEMP", "/not/used"}};
  for (const auto& [name, value] :
       {std::pair{"Temp", "%UserProfile%/AppData/Local/Temp"}, std::pair{"Tmp", "/reg/tmp"}}) {
    ASSERT_TRUE(RegWrite(registry, platform::RegistryRoot::kCurrentUser, "Environment", name,
                         RegistryData{value}));
  }
  EXPECT_EQ(Expand("%Temp%|%TMP%"), "/home/u/AppData/Local/Temp|/reg/tmp");
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
  EXPECT_EQ(Expand(std::string(40000, 'x')).size(), 32766u);
}

}  // namespace
}  // namespace wavforge

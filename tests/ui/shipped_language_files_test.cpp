#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/fake_environment.h"
#include "fakes/fake_user_interface.h"
#include "platform/posix/ini_profile_reader.h"
#include "ui/localize_controls.h"

namespace wavforge {
namespace {

using namespace std::string_literals;

// The language files as they ship, read the way the program reads them.
class ShippedLanguageTest : public ::testing::TestWithParam<const char*> {
 protected:
  clsLocalizeControls Load() {
    environment.program_folder = WAVFORGE_DATA_DIR;
    return clsLocalizeControls(GetParam(), environment, profiles, ui);
  }

  fakes::FakeEnvironment environment;
  platform::posix::IniProfileReader profiles;
  fakes::FakeUserInterface ui;
};

TEST_P(ShippedLanguageTest, HasEveryTextTheWindowsAndMessagesUse) {
  const auto language = Load();
  EXPECT_TRUE(ui.messages.empty()) << "a key is written twice";
  for (const char* key : {"27100", "27110", "5050", "27900", "27910", "homepage", "email", "908",
                          "989VI", "onlinehelp", "100000", "100120", "100130", "100140", "100150",
                          "helpoffline", "helpofflinetext", "helpofflinelink"}) {
    EXPECT_NE(language.Text(key), "") << GetParam() << " " << key;
  }
  // Controls whose text the user types or that show no text carry only a tip.
  for (const char* key : {"100100", "100110"}) {
    EXPECT_EQ(language.Text(key), "") << GetParam() << " " << key;
    EXPECT_NE(language.Tip(key), "") << GetParam() << " " << key;
  }
  for (const char* key : {"27110", "5050"}) {
    EXPECT_NE(language.Tip(key), "") << GetParam() << " " << key;
  }
}

TEST_P(ShippedLanguageTest, MessagesTakeTheirArgumentsAndLineBreaks) {
  const auto language = Load();
  const std::string failed = language.FormatMsg("908", {"/tmp/x", "5", "denied"});
  for (const char* argument : {"/tmp/x", "5", "denied"}) {
    EXPECT_NE(failed.find(argument), std::string::npos) << GetParam() << ": " << failed;
  }
  EXPECT_EQ(failed.find('%'), std::string::npos) << failed;
  EXPECT_EQ(failed.find("\\n"), std::string::npos) << failed;
  EXPECT_NE(failed.find("\r\n"), std::string::npos) << failed;
  for (const char* address : {"homepage", "onlinehelp"}) {
    EXPECT_EQ(language.FormatMsg(address).rfind("https://", 0), 0u) << GetParam() << address;
  }
  EXPECT_EQ(language.FormatMsg("email").rfind("mailto:", 0), 0u) << GetParam();
}

INSTANTIATE_TEST_SUITE_P(Languages, ShippedLanguageTest, ::testing::Values("English", "German"));

}  // namespace
}  // namespace wavforge

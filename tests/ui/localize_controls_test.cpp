#include "ui/localize_controls.h"

#include <gtest/gtest.h>

#include "fakes/fake_environment.h"
#include "fakes/fake_user_interface.h"
#include "fakes/memory_profile_reader.h"

namespace wavforge {
namespace {

TEST(LanguageObjectTest, SplitsTextAndTip) {
  fakes::FakeEnvironment environment;  // program folder /opt/wavforge
  fakes::MemoryProfileReader profiles;
  fakes::FakeUserInterface ui;
  profiles.SetFile("/opt/wavforge/English.lang",
                   "1=Caption|Tip|ignored\n2=|OnlyTip\n3=OnlyText|\n4=|\n");
  const clsLocalizeControls language("English", environment, profiles, ui);
  EXPECT_EQ(language.Text("1"), "Caption");
  EXPECT_EQ(language.Tip("1"), "Tip");
  EXPECT_EQ(language.Text("2"), "");
  EXPECT_EQ(language.Tip("2"), "OnlyTip");
  EXPECT_EQ(language.Text("3"), "OnlyText");
  EXPECT_EQ(language.Tip("3"), "");
  EXPECT_EQ(language.Text("4"), "");
}

}  // namespace
}  // namespace wavforge

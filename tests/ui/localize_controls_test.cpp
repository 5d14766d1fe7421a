#include "ui/localize_controls.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/fake_environment.h"
#include "fakes/fake_user_interface.h"
#include "fakes/memory_profile_reader.h"

namespace wavforge {
namespace {

using namespace std::string_literals;

class LanguageObjectTest : public ::testing::Test {
 protected:
  const std::string kFile = "/opt/wavforge/English.lang";

  clsLocalizeControls Load(const std::string& text, const std::string& language = "English") {
    profiles.SetFile(kFile, text);
    return clsLocalizeControls(language, environment, profiles, ui);
  }

  fakes::FakeEnvironment environment;  // program folder /opt/wavforge
  fakes::MemoryProfileReader profiles;
  fakes::FakeUserInterface ui;
};

struct FormatCase {
  const char* name;
  std::string value;
  std::vector<std::string> arguments;
  std::string expected;
};

class FormatMsgTest : public LanguageObjectTest,
                      public ::testing::WithParamInterface<FormatCase> {};

TEST_P(FormatMsgTest, FillsArgumentsAndEscapes) {
  const auto language = Load("908=" + GetParam().value + "\n");
  EXPECT_EQ(language.FormatMsg("908", GetParam().arguments), GetParam().expected)
      << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(
    Table, FormatMsgTest,
    ::testing::Values(FormatCase{"no arguments keep %1", "Error %1 here", {}, "Error %1 here"},
                      FormatCase{"every occurrence", "%1-%1-%2", {"a", "b"}, "a-a-b"},
                      FormatCase{"escapes after arguments", "x\\ny%1", {"\\r"}, "x\ny\r"},
                      FormatCase{"nul argument", "Wave%1*.wav%1%1", {"\0"s}, "Wave\0*.wav\0\0"s},
                      FormatCase{"argument holding a later number", "%1 %2", {"%2", "z"}, "z z"},
                      FormatCase{"tip part is not used", "Text|Tip", {}, "Text"},
                      FormatCase{"redirect is not followed", ":27100", {}, ":27100"}));

TEST_F(LanguageObjectTest, MissingKeyOrLanguageGivesEmptyText) {
  EXPECT_EQ(Load("908=x\n").FormatMsg("909"), "");
  EXPECT_EQ(Load("908=x\n", "").FormatMsg("908"), "");
  profiles.RemoveFile(kFile);
  EXPECT_EQ(clsLocalizeControls("English", environment, profiles, ui).FormatMsg("908"), "");
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(LanguageObjectTest, KeysIgnoreCaseAndOnlyTheUnnamedSectionCounts) {
  const auto language = Load("homepage=https://a\n[Other]\nemail=x@y\n");
  EXPECT_EQ(language.FormatMsg("HomePage"), "https://a");
  EXPECT_EQ(language.FormatMsg("email"), "");
}

TEST_F(LanguageObjectTest, SplitsTextAndTip) {
  const auto language = Load("1=Caption|Tip|ignored\n2=|OnlyTip\n3=OnlyText|\n4=|\n");
  EXPECT_EQ(language.Text("1"), "Caption");
  EXPECT_EQ(language.Tip("1"), "Tip");
  EXPECT_EQ(language.Text("2"), "");
  EXPECT_EQ(language.Tip("2"), "OnlyTip");
  EXPECT_EQ(language.Text("3"), "OnlyText");
  EXPECT_EQ(language.Tip("3"), "");
  EXPECT_EQ(language.Text("4"), "");
}

TEST_F(LanguageObjectTest, ARepeatedKeyWarnsOncePerRefusedPartAndTheFirstEntryStays) {
  const auto language = Load("Key=first|tip\nOther=x\nKEY=second|other tip\nOnly=t\n");
  EXPECT_EQ(language.Text("key"), "first");
  EXPECT_EQ(language.Tip("key"), "tip");
  ASSERT_EQ(ui.messages.size(), 2u);  // text and tip refused
  EXPECT_EQ(ui.messages[0].text, "Item KEY exists twice in language file!");
  EXPECT_EQ(ui.messages[0].style, platform::kExclamationIcon);
  EXPECT_EQ(ui.messages[0].title, kFile);
}

}  // namespace
}  // namespace wavforge

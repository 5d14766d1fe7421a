#include "ui/localize_controls.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
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

TEST_F(LanguageObjectTest, FormatMsgFillsArgumentsAndEscapes) {
  // The entry's value, the arguments, the message.
  const std::tuple<std::string, std::vector<std::string>, std::string> cases[] = {
      {"Error %1 here", {}, "Error %1 here"},  // no arguments keep %1
      {"%1-%1-%2", {"a", "b"}, "a-a-b"},
      {"x\\ny%1", {"\\r"}, "x\ny\r"},  // escapes after arguments
      {"Wave%1*.wav%1%1", {"\0"s}, "Wave\0*.wav\0\0"s},
      {"%1 %2", {"%2", "z"}, "z z"},  // an argument holding a later number
      {"Text|Tip", {}, "Text"},
      {":27100", {}, ":27100"},  // a redirect is not followed
  };
  for (const auto& [value, arguments, expected] : cases) {
    EXPECT_EQ(Load("908=" + value + "\n").FormatMsg("908", arguments), expected) << value;
  }
}

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

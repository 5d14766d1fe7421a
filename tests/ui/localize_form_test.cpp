#include <gtest/gtest.h>

#include <string>

#include "fakes/fake_environment.h"
#include "fakes/fake_user_interface.h"
#include "fakes/memory_profile_reader.h"
#include "ui/form.h"
#include "ui/localize_controls.h"

namespace wavforge {
namespace {

// A window with one element of each kind the walk treats differently.
class LocalizeFormTest : public ::testing::Test {
 protected:
  LocalizeFormTest() {
    window.Caption = "Design caption";
    window.HelpContextID = 27100;
    auto& button = window.Add("cmdSelectFile", ControlKind::kCommandButton);
    button.Caption = "Select";
    button.ToolTipText = "design tip";
    button.WhatsThisHelpID = 27110;
    auto& box = window.Add("txtSearch", ControlKind::kTextBox);
    box.Text = "design text";
    box.ToolTipText = "";
    box.WhatsThisHelpID = 100110;
    auto& zero = window.Add("cmdStart", ControlKind::kCommandButton);
    zero.Caption = "Start";
    zero.WhatsThisHelpID = 0;
    auto& combo = window.Add("cboFormat", ControlKind::kComboBox);
    combo.List = {"mp3key", "not a key"};
    combo.Text = "";
    combo.WhatsThisHelpID = 0;
    auto& tabs = window.Add("tabPages", ControlKind::kTabStrip);
    tabs.Tabs = {{"One", "tabkey"}, {"Two", "nokey"}};
    window.Add("tmrStillWorking", ControlKind::kTimer);
    auto& redirect = window.Add("lblRedirect", ControlKind::kLabel);
    redirect.Caption = "design";
    redirect.ToolTipText = "";
    redirect.WhatsThisHelpID = 5050;
    auto& broken = window.Add("lblBroken", ControlKind::kLabel);
    broken.Caption = "keeps";
    broken.WhatsThisHelpID = 5060;
  }

  void Localize(const std::string& file, const std::string& language = "English") {
    profiles.SetFile("/opt/wavforge/English.lang", file);
    clsLocalizeControls(language, environment, profiles, ui).LocalizeControls(window);
  }
  Control& Get(const char* name) { return *window.Find(name); }

  fakes::FakeEnvironment environment;
  fakes::MemoryProfileReader profiles;
  fakes::FakeUserInterface ui;
  Form window{"frmTest"};
};

TEST_F(LocalizeFormTest, ReplacesTextsAndTipsByKey) {
  Localize(
      "27100=Encoder\n"
      "27110=|Only a tip\n"              // no text part: caption stays
      "100110=Search here|Type words\n"  // a text box gets its contents replaced
      "0=Never used\n"
      "mp3key=MP3 files\n"
      "tabkey=First|First tip\n"
      "5050=:27100\n"  // caption from another key, tip not
      "5060=:missing|:alsomissing\n");
  EXPECT_EQ(window.Caption, "Encoder");
  EXPECT_EQ(Get("cmdSelectFile").Caption, "Select");
  EXPECT_EQ(Get("cmdSelectFile").ToolTipText, "Only a tip");
  EXPECT_EQ(Get("txtSearch").Text, "Search here");
  EXPECT_EQ(Get("txtSearch").Caption, std::nullopt);
  EXPECT_EQ(Get("txtSearch").ToolTipText, "Type words");
  EXPECT_EQ(Get("cmdStart").Caption, "Start");
  EXPECT_EQ(Get("cboFormat").List, (std::vector<std::string>{"MP3 files", "not a key"}));
  EXPECT_EQ(Get("tabPages").Tabs[0].Caption, "First");
  EXPECT_EQ(Get("tabPages").Tabs[0].ToolTipText, "First tip");
  EXPECT_EQ(Get("tabPages").Tabs[1].Caption, "Two");
  EXPECT_EQ(Get("tabPages").Tabs[1].ToolTipText, "");  // no tip for its key: cleared
  EXPECT_EQ(Get("lblRedirect").Caption, "Encoder");
  EXPECT_EQ(Get("lblRedirect").ToolTipText, "");
  EXPECT_EQ(Get("lblBroken").Caption, "keeps");
  EXPECT_EQ(Get("lblBroken").ToolTipText, std::nullopt);  // a label here has no tip
}

TEST_F(LocalizeFormTest, RedirectsGoOneLevelOnly) {
  Localize("27110=:5050\n5050=:27100\n27100=Window\n");
  EXPECT_EQ(Get("cmdSelectFile").Caption, ":27100");
}

// Captions keep the escapes that messages turn into line breaks; a design tip without a
// translation is cleared.
TEST_F(LocalizeFormTest, CaptionsKeepEscapesAndUntranslatedTipsGo) {
  Localize("27110=Line\\nbreak\n");
  EXPECT_EQ(Get("cmdSelectFile").Caption, "Line\\nbreak");
  EXPECT_EQ(Get("cmdSelectFile").ToolTipText, "");
}

TEST_F(LocalizeFormTest, NoLanguageOrNoFileChangesNothing) {
  Localize("27100=Encoder\n27110=Pick|tip\n", "");
  EXPECT_EQ(window.Caption, "Design caption");
  EXPECT_EQ(Get("cmdSelectFile").ToolTipText, "design tip");
  profiles.RemoveFile("/opt/wavforge/English.lang");
  clsLocalizeControls("English", environment, profiles, ui).LocalizeControls(window);
  EXPECT_EQ(window.Caption, "Design caption");
  EXPECT_EQ(Get("cmdSelectFile").Caption, "Select");
}

}  // namespace
}  // namespace wavforge

#include <gtest/gtest.h>

#include <string>

#include "fakes/fake_environment.h"
#include "fakes/fake_user_interface.h"
#include "fakes/memory_profile_reader.h"
#include "ui/form.h"
#include "ui/localize_controls.h"

namespace wavforge {
namespace {

// Each element is found by its help number; a text starting with ':' takes the text of the
// key it names, one level deep.
TEST(LocalizeFormTest, ReplacesTextsAndTipsByKey) {
  Form window{"frmTest"};
  window.Caption = "Design caption";
  window.HelpContextID = 27100;
  const auto add = [&](const char* name, ControlKind kind, int key) -> Control& {
    Control& control = window.Add(name, kind);
    control.Caption = "design";
    control.ToolTipText = "design tip";
    control.WhatsThisHelpID = key;
    return control;
  };
  add("cmdSelectFile", ControlKind::kCommandButton, 27110);
  add("cmdStart", ControlKind::kCommandButton, 0);
  Control& box = add("txtSearch", ControlKind::kTextBox, 100110);
  box.Caption.reset();
  box.Text = "design text";
  add("lblRedirect", ControlKind::kLabel, 5050);
  add("lblBroken", ControlKind::kLabel, 5060).ToolTipText.reset();
  fakes::FakeEnvironment environment;
  fakes::MemoryProfileReader profiles;
  fakes::FakeUserInterface ui;
  profiles.SetFile("/opt/wavforge/English.lang",
                   "27100=Encoder\n"
                   "27110=|Only a tip\n"              // no text part: the caption stays
                   "100110=Search here|Type words\n"  // a text box gets its contents replaced
                   "0=Never used\n"
                   "5050=:27100\n"  // the caption from another key; no tip: the tip is cleared
                   "5060=:missing|:alsomissing\n");
  clsLocalizeControls("English", environment, profiles, ui).LocalizeControls(window);

  EXPECT_EQ(window.Caption, "Encoder");
  const auto texts = [&](const char* name) {
    const Control& c = *window.Find(name);
    return c.Caption.value_or("-") + "|" + c.Text.value_or("-") + "|" + c.ToolTipText.value_or("-");
  };
  EXPECT_EQ(texts("cmdSelectFile"), "design|-|Only a tip");
  EXPECT_EQ(texts("cmdStart"), "design|-|design tip");
  EXPECT_EQ(texts("txtSearch"), "-|Search here|Type words");
  EXPECT_EQ(texts("lblRedirect"), "Encoder|-|");
  EXPECT_EQ(texts("lblBroken"), "design|-|-");
}

}  // namespace
}  // namespace wavforge

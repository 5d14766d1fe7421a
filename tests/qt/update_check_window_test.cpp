#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <algorithm>

#include "assistant/update_check.h"
#include "desktop_window_fixture.h"
#include "settings/registry_access.h"
#include "shell/version_label.h"
#include "static_help_server.h"

namespace wavforge::qt {
namespace {

namespace fs = std::filesystem;

struct StartCase {
  const char* name;
  const char* auto_update_check;
  const char* next_check;  // empty: none stored
  bool asked;              // "-update" on the command line
  bool checks;
};

// The desktop program at start-up, with a language file whose update address is a page on a
// server on 127.0.0.1.
class UpdateCheckAtStartTest : public DesktopWindowTest,
                               public ::testing::WithParamInterface<StartCase> {
 protected:
  void SetUp() override {
    DesktopWindowTest::SetUp();
    const fs::path site = Root() / "site";
    ran = Root() / "update-ran";
    testing_support::WriteFile(
        site / "update.htm",
        "<html><head><title>Update</title><meta name=\"retcode\" content=\"2;+7\">"
        "<meta name=\"message\" content=\"wavforge 9 is out\" title=\"News\"></head><body>"
        "<script type=\"text/plain\" id=\"code\">Main() { echo ran > '" +
            ran.string() + "'; }</script></body></html>");
    server = std::make_unique<StaticHelpServer>(QString::fromStdString(site.string()));
    const std::string base = server->Base().toStdString();
    UseProgramFolder({"onlinehelp=" + base, "updateurl=" + base + "update.htm"});
  }

  std::string Flag(const char* name) {
    return std::get<std::string>(RegRead(*registry, platform::RegistryRoot::kCurrentUser,
                                         ProgramKeyPath("Flags"), name, std::string()));
  }

  fs::path ran;
  std::unique_ptr<StaticHelpServer> server;
};

TEST_P(UpdateCheckAtStartTest, ChecksOnlyWhenAskedOrTurnedOnAndDue) {
  const StartCase& c = GetParam();
  WriteSettings("English", std::string("AutoUpdateCheck=") + c.auto_update_check + "\n");
  Open();
  if (*c.next_check) SaveAppSetting(*registry, "Flags", "NextUpdateCheck", c.next_check);
  // Answers the message box once it shows, keeping what it said.
  std::string shown;
  QTimer answer;
  QObject::connect(&answer, &QTimer::timeout, [&] {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      auto* box = qobject_cast<QMessageBox*>(widget);
      if (!box || !box->isVisible()) continue;
      shown = box->windowTitle().toStdString() + ": " + box->text().toStdString();
      box->accept();
    }
  });
  answer.start(50);

  assistant->CheckForUpdatesAtStart(c.asked);

  if (!c.checks) {
    EXPECT_EQ(assistant->Form(), nullptr);
    EXPECT_EQ(server->requests, 0);
    return;
  }
  ASSERT_TRUE(QTest::qWaitFor([&] { return fs::exists(ran); }, 30000)) << "the script did not run";
  EXPECT_EQ(shown, "News: wavforge 9 is out");
  EXPECT_FALSE(assistant->Window()->isVisible());
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(Flag("Code"), "2;+7");
  // Today and a week from today: the next check is as far ahead as the page said.
  EXPECT_EQ(Flag("LastUpdateCheck").substr(0, 10), DateTimeText(clock.Now(), 0).substr(0, 10));
  EXPECT_EQ(Flag("NextUpdateCheck").substr(0, 10), DateTimeText(clock.Now(), 7).substr(0, 10));
  const QByteArray agent = "wavforge " + QByteArray::fromStdString(VersionLabel(WAVFORGE_VERSION));
  EXPECT_TRUE(std::any_of(server->received.begin(), server->received.end(), [&](const auto& r) {
    return r.startsWith("GET /update.htm") && r.contains(agent);
  })) << server->received.join("\n").toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Rows, UpdateCheckAtStartTest,
    ::testing::Values(StartCase{"Off", "0", "", false, false},
                      StartCase{"OnAndDue", "1", "2000-01-01 00:00:00", false, true},
                      StartCase{"OnNotDue", "1", "2999-01-01 00:00:00", false, false},
                      StartCase{"AskedByTheElevatedRestart", "0", "2999-01-01 00:00:00", true,
                                true}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace wavforge::qt

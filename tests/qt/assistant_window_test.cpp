#include <QCheckBox>
#include <QTest>
#include <QWebEnginePage>
#include <QWebEngineView>

#include "desktop_window_fixture.h"
#include "qt/web_browser.h"
#include "settings/registry_access.h"
#include "static_help_server.h"

namespace wavforge::qt {
namespace {

namespace fs = std::filesystem;

// The desktop program with its help in a program folder of the test's own, whose language file
// points the online help at a server on 127.0.0.1 serving the same English pages.
class AssistantWindowTest : public DesktopWindowTest {
 protected:
  void SetUp() override {
    DesktopWindowTest::SetUp();
    const fs::path built = WAVFORGE_PROGRAM_DIR;
    server = std::make_unique<StaticHelpServer>(QString::fromStdString(built / "HTML0/English"));
    UseProgramFolder({"onlinehelp=" + server->Base().toStdString()});
    WriteSettings("English", "DelTemp=1\n");
    RegWrite(Registry(), platform::RegistryRoot::kCurrentUser, kBrowserSettingsKey,
             kDownloadDirectoryValue, std::string("/home/me/Downloads"));
    Open();
  }

  platform::Registry& Registry() {
    if (!registry) {
      const auto paths = platform::posix::DefaultRegistryPaths(kProductName);
      registry = std::make_unique<platform::posix::SqliteRegistry>(paths.user_store,
                                                                   paths.machine_store, nullptr);
    }
    return *registry;
  }
  std::string Downloads() {
    return std::get<std::string>(RegRead(*registry, platform::RegistryRoot::kCurrentUser,
                                         kBrowserSettingsKey, kDownloadDirectoryValue,
                                         std::string()));
  }

  // Waits until the assistant shows a page whose address ends so.
  ::testing::AssertionResult Shows(const std::string& page) {
    const bool shown = QTest::qWaitFor(
        [&] {
          const frmWizard* wizard = assistant->Form();
          return wizard && wizard->docCurrent && wizard->docCurrent->URL.ends_with("/" + page);
        },
        15000);
    if (shown) return ::testing::AssertionSuccess();
    const frmWizard* wizard = assistant->Form();
    return ::testing::AssertionFailure()
           << "not showing " << page << " but "
           << (wizard && wizard->docCurrent ? wizard->docCurrent->URL : "nothing");
  }
  // Runs a script as the page's own script does, and gives its result as text.
  std::string PageScript(const QString& script) {
    auto* browser = dynamic_cast<WebBrowser*>(assistant->Window()->WidgetOf("objWebBrowser1"));
    std::optional<QString> result;
    browser->View()->page()->runJavaScript(
        script, [&](const QVariant& value) { result = value.toString(); });
    if (!QTest::qWaitFor([&] { return result.has_value(); }, 10000)) return "(no answer)";
    return result->toStdString();
  }
  // A key as the user presses it: to the window's focused widget, or the window itself.
  static void Press(QWidget* window, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QWidget* focus = QApplication::focusWidget();
    QTest::keyClick(focus && focus->window() == window ? focus : window, key, modifiers);
  }
  void Click(const char* selector) {
    PageScript(QStringLiteral("document.querySelector('%1').click()").arg(selector));
  }

  std::unique_ptr<StaticHelpServer> server;
};

TEST_F(AssistantWindowTest, AltF1OpensTheLocalHelpWithoutMenusOrChannelAndEscapeClosesIt) {
  Press(window.get(), Qt::Key_F1, Qt::AltModifier);
  ASSERT_TRUE(Shows("encode.htm"));
  const frmWizard& wizard = *assistant->Form();
  EXPECT_EQ(wizard.docCurrent->URL.rfind("file://" + program_folder + "/HTML0/English/", 0), 0u);
  EXPECT_TRUE(assistant->Window()->isVisible());
  EXPECT_TRUE(QTest::qWaitFor([&] { return wizard.Caption == wizard.docCurrent->title; }));
  EXPECT_NE(Downloads(), "/home/me/Downloads");

  EXPECT_EQ(PageScript("typeof qt + ' ' + (window.external == null)"), "undefined true");
  EXPECT_EQ(PageScript("var e = new MouseEvent('contextmenu', {bubbles: true, cancelable: true});"
                       "document.body.dispatchEvent(e); String(e.defaultPrevented)"),
            "true");

  Press(assistant->Window(), Qt::Key_Escape);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !assistant->Form(); }));
  EXPECT_EQ(Downloads(), "/home/me/Downloads");
}

TEST_F(AssistantWindowTest, TheAssistantWalksTheLocalPagesAndItsCheckBoxIsTheMainWindows) {
  Press(window.get(), Qt::Key_F2, Qt::AltModifier);
  ASSERT_TRUE(Shows("wizard.htm"));
  for (const char* page : {"wizard-files.htm", "wizard-format.htm", "wizard-delete.htm"}) {
    Click("[command=\"go next\"]");
    ASSERT_TRUE(Shows(page));
  }
  ASSERT_TRUE(QTest::qWaitFor([&] {
    return PageScript(
               "document.querySelector('#chkDelTemp')"
               ".checked") == "true";
  }));
  Click("#chkDelTemp");
  EXPECT_TRUE(QTest::qWaitFor([&] { return form->Find("chkDelTemp")->Value == 0; }));
  EXPECT_FALSE(program->settings.DelTemp);
  EXPECT_FALSE(static_cast<QCheckBox*>(Widget("chkDelTemp"))->isChecked());
}

TEST_F(AssistantWindowTest, F3OpensTheOnlineSearchAndGoNextFollowsTheOnlineTable) {
  Press(window.get(), Qt::Key_F3);
  ASSERT_TRUE(Shows("search.htm"));
  EXPECT_EQ(assistant->Form()->docCurrent->URL.rfind(server->Base().toStdString(), 0), 0u);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !assistant->Form()->OnlineNav.empty(); }));

  Press(assistant->Window(), Qt::Key_F2);
  ASSERT_TRUE(Shows("wizard.htm"));
  Click("[command=\"go next\"]");
  ASSERT_TRUE(Shows("wizard-files.htm"));
  EXPECT_EQ(assistant->Form()->docCurrent->URL, server->Base().toStdString() + "wizard-files.htm");
}

}  // namespace
}  // namespace wavforge::qt

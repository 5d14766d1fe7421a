#include "assistant/frm_wizard.h"

#include <gtest/gtest.h>

#include "assistant/nav_table.h"
#include "assistant/page_folder.h"
#include "fakes/fake_browser.h"
#include "settings/registry_access.h"
#include "shell/main_window_fixture.h"
#include "shell/version_label.h"

namespace wavforge {
namespace {

using Root = platform::RegistryRoot;
constexpr const char* kPages = "/opt/wavforge/HTML0/English/";
constexpr const char* kOnline = "https://help.test/en/";

std::shared_ptr<HtmlDocument> Page(const std::string& url, const std::string& version = "2") {
  auto page = std::make_shared<HtmlDocument>();
  page->URL = url;
  if (!version.empty())
    page->metas.push_back(
        {"META", "version", "", false, false, "", {{"content", version}}, nullptr});
  return page;
}

HtmlElement Element(const std::string& tag, const std::string& name, const std::string& type,
                    std::vector<std::pair<std::string, std::string>> attributes = {}) {
  return {tag, name, type, false, false, "", std::move(attributes), nullptr};
}

// The assistant window on fakes, beside a loaded main window, its browsers recording.
class AssistantTest : public testing_main::MainWindowTest {
 protected:
  AssistantTest() {
    profiles.SetFile(testing_main::kLanguageFile,
                     "100000=Assistant\n100130=Online\nonlinehelp=https://help.test/en/\n"
                     "helpoffline=Offline\n");
    profiles.SetFile("/opt/wavforge/Larkspur.nav",
                     "[Help]\nindex=index.htm\n[Assistant]\nwizard=wizard.htm\n"
                     "names=names.htm\ndelete=delete.htm\n");
    files.AddFolder("/opt/wavforge/HTML0/English");
    Loaded();
    window->Left = 1200;
    window->Width = 7000;
  }

  frmWizard& Wizard() {
    if (!wizard || wizard->Released()) {
      wizard = std::make_unique<frmWizard>(ports, ui, program);
      wizard->Find("objWebBrowser1")->Browser = &page;
      wizard->Find("objWebBrowser2")->Browser = &nav;
      page = {};
      nav = {};
      wizard->Load();
    }
    return *wizard;
  }
  // Clicks the page element at index, as the browser does: focus first, then its handler.
  void ClickElement(int index) {
    page.document->activeElementIndex = index;
    if (const auto handler = page.document->all[static_cast<std::size_t>(index)].onclick) {
      handler->DefaultMethod();
    }
  }
  std::string Downloads() {
    return std::get<std::string>(RegRead(registry, Root::kCurrentUser, kBrowserSettingsKey,
                                         kDownloadDirectoryValue, std::string("(none)")));
  }

  fakes::FakeBrowser page, nav;
  std::unique_ptr<frmWizard> wizard;
};

TEST_F(AssistantTest, LoadPreparesTheWindowAndCloseRestoresTheDownloadFolder) {
  for (const bool saved : {true, false}) {
    SCOPED_TRACE(saved);
    if (saved)
      RegWrite(registry, Root::kCurrentUser, kBrowserSettingsKey, kDownloadDirectoryValue,
               std::string("/home/u/Downloads"));
    frmWizard& w = Wizard();
    EXPECT_EQ(Downloads(), "/srv/common/wavforge");
    EXPECT_EQ(page.navigations, std::vector<std::string>{"about:blank"});
    EXPECT_EQ(nav.navigations,
              (std::vector<std::string>{"about:blank", "https://help.test/en/Larkspur.nav"}));
    EXPECT_EQ(w.PageFolder, kPages);
    EXPECT_EQ(w.LocalNav.size(), 4u);
    EXPECT_FALSE(w.Find("cmdOnOffline")->Visible);
    EXPECT_EQ(*w.Find("cmdMove", 0)->Left, 1956 + 720);
    EXPECT_EQ(page.fallback.local_folder, kPages);

    int escape = kKeyEscape;
    w.KeyDown(escape, 0);
    EXPECT_TRUE(w.Released());
    EXPECT_EQ(Downloads(), saved ? "/home/u/Downloads" : "/srv/common/wavforge");
    // The next use makes a fresh window, which counts its navigations anew.
    EXPECT_NE(&Wizard(), &w);
    EXPECT_EQ(wizard->NavigateCompleteCount, 0);
    RegWrite(registry, Root::kCurrentUser, kBrowserSettingsKey, kDownloadDirectoryValue,
             std::string());
    wizard.reset();
  }
}

TEST(PageFolderTest, MajorVersionFoldersComeFirstAndHtmlBeforeHelp) {
  const struct {
    std::vector<std::string> folders;
    std::string expected;
  } cases[] = {
      {{"HTML2/English", "Help2/English", "HTML/English"}, "/p/HTML2/English/"},
      {{"Help2/English", "HTML/English"}, "/p/Help2/English/"},
      {{"Help/English", "HTML/English"}, "/p/HTML/English/"},
      {{"Help/English", "HTML2/German"}, "/p/Help/English/"},
      {{}, "/p/"},
  };
  for (const auto& c : cases) {
    fakes::FakeFileSystem files;
    for (const auto& folder : c.folders) files.AddFolder("/p/" + folder);
    EXPECT_EQ(ChoosePageFolder(files, "/p", "2", "English"), c.expected);
  }
}

TEST(NavTableTest, LocalFileGivesEveryKeyInFileOrderAndOnlineTextKeepsSingleEquals) {
  fakes::MemoryProfileReader profiles;
  profiles.SetFile("/n.nav", "[A]\na1=1.htm\na2=2.htm\na3=3.htm\n[B]\nb1=4.htm\nb2=\nB3=6.htm\n");
  const NavTable local = ReadLocalNav(profiles, "/n.nav");
  ASSERT_EQ(local.size(), 6u);
  EXPECT_EQ(local[3], (NavEntry{"b1", "4.htm"}));
  EXPECT_EQ(local[4], (NavEntry{"b2", ""}));
  EXPECT_EQ(FindNavKey(local, "b3"), 6);
  EXPECT_EQ(FindNavPage(local, "2.HTM"), 2);
  EXPECT_EQ(FindNavPage(local, "none.htm"), 0);

  for (const char* text : {"[S]\r\na=b=c\r\nk=p.htm\r\nx=\r\n", "[S]\na=b=c\nk=p.htm\nx=\n"}) {
    NavTable online{{"old", "old.htm"}, {"o2", "o2.htm"}, {"o3", "o3.htm"}};
    ReadOnlineNav(text, online);
    EXPECT_EQ(online, (NavTable{{"k", "p.htm"}, {"x", ""}}));
    ReadOnlineNav("[only a header]\n; a=b=c\n", online);
    EXPECT_EQ(online.size(), 2u) << "a text without entries keeps the table";
  }
}

TEST_F(AssistantTest, SetUrlTakesTheHalfAwayFromTheMainWindow) {
  ui.work_area = {0, 40, 1000, 840};  // 12000 x 9600 twips from top 480
  const struct {
    double main_left, main_width;
    double expected_left;
  } cases[] = {
      {0, 4000, 6000},     // main on the left: the right half
      {8000, 4000, 0},     // main on the right: the left half
      {4000, 4000, 6000},  // centred exactly: the right half
      {4001, 4000, 0},     // a twip right of the centre: the left half
  };
  for (const auto& c : cases) {
    window->Left = c.main_left;
    window->Width = c.main_width;
    frmWizard& w = Wizard();
    w.SetUrl("index.htm", false);
    EXPECT_EQ(w.Left, c.expected_left) << c.main_left;
    EXPECT_EQ(w.Top, 480);
    EXPECT_EQ(w.Width, 6000);
    EXPECT_EQ(w.Height, 9600);
  }
  // Only the assistant itself is visible: it stays where it is.
  window->Visible = false;
  wizard->Left = 123;
  wizard->SetUrl("index.htm", false);
  EXPECT_EQ(wizard->Left, 123);
  EXPECT_TRUE(wizard->Visible);
}

TEST_F(AssistantTest, PagesKeysAndButtonsOpenTheRightAddress) {
  frmWizard& w = Wizard();
  const struct {
    int key, shift;
    bool online_before;
    const char* expected;  // nullptr: no page opens
  } keys[] = {
      {kKeyF1, 0, false, "/opt/wavforge/HTML0/English/start.htm?url=index.htm"},
      {kKeyF1, 0, true, "https://help.test/en/start.htm?url=index.htm"},
      {kKeyF2, 0, false, "/opt/wavforge/HTML0/English/start.htm?url=wizard.htm"},
      {kKeyF3, 0, false, "https://help.test/en/start.htm?url=search.htm"},
      {kKeyF1, kShiftMask, false, nullptr},
      {kKeyF2, kAltMask, false, nullptr},
      {kKeyF12, 0, false, nullptr},
  };
  for (const auto& k : keys) {
    w.IsOnline = k.online_before;
    page.navigations.clear();
    int key = k.key;
    w.KeyDown(key, k.shift);
    if (k.expected) {
      EXPECT_EQ(page.navigations, std::vector<std::string>{k.expected});
      EXPECT_EQ(key, 0);
    } else {
      EXPECT_TRUE(page.navigations.empty()) << k.key << " " << k.shift;
      EXPECT_EQ(key, k.key);
    }
  }

  // A key that arrives while one is being handled is left alone.
  page.navigations.clear();
  int inner = kKeyF3;
  page.while_navigating = [&] { w.KeyDown(inner, 0); };
  int outer = kKeyF1;
  w.KeyDown(outer, 0);
  page.while_navigating = nullptr;
  EXPECT_EQ(page.navigations.size(), 1u);
  EXPECT_EQ(inner, kKeyF3);

  Control& search = *w.Find("txtSearch");
  for (const auto& [text, enabled] : {std::pair{"ab", false}, {"abc", true}, {"", false}}) {
    search.Text = text;
    w.Change(search);
    EXPECT_EQ(w.Find("cmdSearch")->Enabled, enabled) << text;
  }
  search.Text = "two words";
  w.Click(*w.Find("cmdSearch"));
  EXPECT_EQ(page.navigations.back(), "https://help.test/en/start.htm?url=search.php?s=two words");
  w.Click(*w.Find("cmdPrint"));
  w.Click(*w.Find("cmdMove", 1));
  EXPECT_EQ(page.prints, 1);
  EXPECT_EQ(page.forwards, 1);
}

TEST_F(AssistantTest, CaptionAndMoveButtonsFollowTheBrowser) {
  frmWizard& w = Wizard();
  page.Events().TitleChange("about:blank");
  EXPECT_EQ(w.Caption, "Assistant");
  page.Events().TitleChange("Names and places");
  EXPECT_EQ(w.Caption, "Names and places");

  page.Events().CommandStateChange(kCscNavigateBack, true);
  page.Events().CommandStateChange(kCscNavigateForward, false);
  EXPECT_TRUE(w.Find("cmdMove", 0)->Enabled);
  EXPECT_EQ(w.Find("cmdMove", 0)->Picture, w.Find("imgMove", 1)->Picture);
  EXPECT_FALSE(w.Find("cmdMove", 1)->Enabled);
  EXPECT_EQ(w.Find("cmdMove", 1)->Picture, w.Find("imgMove", 2)->Picture);

  // The page gets the focus only while the window is in front.
  page.Complete(Page("/x/index.htm", ""));
  page.Events().CommandStateChange(kCscUpdateCommands, true);
  EXPECT_FALSE(page.document->focusRequested);
  ui.foreground = "frmWizard";
  page.Events().CommandStateChange(kCscUpdateCommands, true);
  EXPECT_TRUE(page.document->focusRequested);
}

TEST_F(AssistantTest, TheHostHandlerIsSetOnTheFirstNavigationAndClearedOnTheSecond) {
  Wizard();
  std::vector<std::shared_ptr<HtmlDocument>> pages;
  for (int i = 0; i < 3; ++i) {
    pages.push_back(Page("/x/p" + std::to_string(i) + ".htm", ""));
    page.Complete(pages.back());
    EXPECT_TRUE(pages.back()->contextMenuCancelled);
  }
  ASSERT_NE(pages[0]->uiHandler, nullptr);
  unsigned flags = 0;
  void* external = &flags;
  EXPECT_EQ(pages[0]->uiHandler->GetHostInfo(flags), DocHostUIHandler::kOk);
  EXPECT_EQ(flags, 0x00040004u);
  pages[0]->uiHandler->GetExternal(external);
  EXPECT_EQ(external, nullptr);
  EXPECT_TRUE(pages[1]->uiHandlerChanged);
  EXPECT_EQ(pages[1]->uiHandler, nullptr);
  EXPECT_FALSE(pages[2]->uiHandlerChanged);
}

// A version-2 page with the main window's check box, a button, an unknown control, an element
// with its own command, a command element and an element the bridge ignores.
std::shared_ptr<HtmlDocument> AssistantPage(const std::string& version, bool base_form) {
  auto p = Page(std::string(kPages) + "names.htm", version);
  if (base_form) {
    p->metas.push_back(Element("META", "baseform", "", {{"content", "frmWizard"}}));
  }
  p->all = {Element("INPUT", "chkDelTemp", "checkbox"),
            Element("INPUT", "cmdSelectFile", "button"),
            Element("A", "lblNowhere", ""),
            Element("INPUT", "chkDelTemp", "checkbox", {{"command", "setfocus"}}),
            Element("A", "", "", {{"command", "go next"}}),
            Element("DIV", "chkDelTemp", "checkbox")};
  return p;
}

TEST_F(AssistantTest, VersionTwoPagesAreBoundToTheMainWindow) {
  Get("chkDelTemp").Value = 1;
  Get("chkDelTemp").Enabled = false;
  Wizard().SetUrl("names.htm", false);
  auto bound = AssistantPage("2", false);
  page.Complete(bound);
  const auto& e = bound->all;
  EXPECT_TRUE(e[0].checked);
  EXPECT_TRUE(e[0].disabled);
  EXPECT_NE(e[0].onclick, nullptr);
  EXPECT_EQ(e[1].getAttribute("command"), "click");
  EXPECT_EQ(e[2].onclick, nullptr);
  EXPECT_EQ(e[2].getAttribute("command"), "click");
  EXPECT_EQ(e[3].getAttribute("command"), "setfocus");
  EXPECT_NE(e[4].onclick, nullptr);
  EXPECT_EQ(e[5].onclick, nullptr);
  EXPECT_FALSE(e[5].checked);

  for (const auto& [version, base_form] : {std::pair{"1", false}, {"", false}, {"2.4", true}}) {
    auto other = AssistantPage(version, base_form);
    page.Complete(other);
    EXPECT_EQ(other->all[0].onclick, nullptr) << version;
    EXPECT_FALSE(other->all[0].checked);
  }
}

TEST_F(AssistantTest, ClicksOnBoundElementsActOnTheMainWindow) {
  Get("chkDelTemp").Value = 0;
  program.settings.DelTemp = false;
  Wizard().SetUrl("names.htm", false);
  page.Complete(AssistantPage("2", false));
  auto& e = page.document->all;

  e[0].checked = true;
  ClickElement(0);
  EXPECT_EQ(Get("chkDelTemp").Value, 1);
  EXPECT_TRUE(program.settings.DelTemp) << "the check box's own click handling runs";
  EXPECT_EQ(ui.beeps, 0);

  // A button: the focus goes to it, and the main window offers no click operation.
  ClickElement(1);
  EXPECT_EQ(window->FocusRequested, &Get("cmdSelectFile"));
  EXPECT_EQ(ui.beeps, 1);
  EXPECT_TRUE(wizard->TopMost);

  Get("chkDelTemp").Enabled = false;
  e[0].checked = false;
  ClickElement(0);
  EXPECT_EQ(Get("chkDelTemp").Value, 1) << "a disabled control only beeps";
  EXPECT_EQ(ui.beeps, 2);
  ClickElement(3);
  EXPECT_EQ(ui.beeps, 3) << "a disabled control cannot take the focus";
  Get("chkDelTemp").Enabled = true;
  ClickElement(3);
  EXPECT_EQ(window->FocusRequested, &Get("chkDelTemp"));
  EXPECT_EQ(ui.beeps, 3);
}

TEST_F(AssistantTest, CommandElementsStepThroughThePagesOrCallOperations) {
  frmWizard& w = Wizard();
  const std::string local = kPages;
  const struct {
    std::string current, command;
    std::string expected;  // "" no page opens, "beep" a beep
  } cases[] = {
      {"names.htm", "go next", local + "start.htm?url=delete.htm"},
      {"delete.htm", "go next", ""},
      {"other.htm", "go next", local + "start.htm?url=index.htm"},
      {"index.htm", "go prev", ""},
      {"names.htm", "GO PREVIOUS", local + "start.htm?url=wizard.htm"},
      {"names.htm", "go delete", local + "start.htm?url=delete.htm"},
      {"names.htm", "go nowhere", ""},
      {"names.htm", "go", ""},
      {"names.htm", "NoSuchOperation", "beep"},
      {"names.htm", "SetUrl 12abc.htm 1", "https://help.test/en/start.htm?url=12abc.htm"},
      {"names.htm", "SetUrl names.htm 0", local + "start.htm?url=names.htm"},
      {"names.htm", "SetUrl x.htm 0.6", "https://help.test/en/start.htm?url=x.htm"},
      {"names.htm", "SetUrl x.htm 1 extra", ""},
      {"names.htm", "SetUrl  x.htm", "beep"},
  };
  for (const auto& c : cases) {
    w.SetUrl(c.current, false);
    auto p = Page(local + c.current);
    p->all = {Element("INPUT", "", "button", {{"command", c.command}, {"form", "frmWizard"}})};
    page.Complete(p);
    page.navigations.clear();
    const int beeps = ui.beeps;
    ClickElement(0);
    const std::string opened = page.navigations.empty() ? "" : page.navigations.back();
    EXPECT_EQ(ui.beeps > beeps ? "beep" : opened, c.expected) << c.command << " on " << c.current;
  }
}

}  // namespace
}  // namespace wavforge

namespace wavforge {
namespace {

struct RecordingScripts final : platform::ScriptControl {
  std::vector<std::string> runs;
  void Run(const std::string& source, const std::string& statement) override {
    runs.push_back(source + "|" + statement);
  }
};

class UpdateCheckTest : public AssistantTest {
 protected:
  // Starts a check and completes it with a page of these metas and body elements.
  void Check(std::vector<HtmlElement> metas, std::vector<HtmlElement> body = {}) {
    Wizard().SetScriptControl(&scripts);
    Wizard().RunElevated = [this](const std::string& argument) {
      elevations.push_back(argument);
      return elevation_takes_over;
    };
    Wizard().SetUpdateURL("https://update.test/check");
    auto reply = std::make_shared<HtmlDocument>();
    reply->bodyInnerHTML = "<p>";
    reply->metas = std::move(metas);
    reply->all = std::move(body);
    page.Complete(reply);
  }
  std::string Flag(const char* name) {
    return std::get<std::string>(RegRead(registry, Root::kCurrentUser, ProgramKeyPath("Flags"),
                                         name, std::string("(none)")));
  }
  bool UnloadTimer() { return wizard->Find("tmrUnload")->Enabled; }

  RecordingScripts scripts;
  std::vector<std::string> elevations;
  bool elevation_takes_over = false;
};

HtmlElement Meta(const std::string& name, const std::string& content,
                 const std::string& title = "") {
  auto meta = Element("META", name, "", {{"content", content}});
  if (!title.empty()) meta.setAttribute("title", title);
  return meta;
}

HtmlElement WithId(const std::string& id, const std::string& html) {
  auto element = Element("DIV", "", "", {{"id", id}});
  element.innerHTML = html;
  return element;
}

TEST_F(UpdateCheckTest, AsksWithTheAgentAndStoresTheCodeAndTheNextCheck) {
  RegWrite(registry, Root::kUsers,
           ".DEFAULT\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings",
           "User Agent", std::string("Engine/1"));
  const struct {
    const char* retcode;
    const char* next;
  } cases[] = {{"3;7", "2026-11-26 14:05:10"},
               {"3;+7", "2026-11-26 14:05:10"},
               {"0;0.5", "2026-11-20 02:05:10"},
               {"5", "2026-11-20 14:05:10"}};
  for (const auto& c : cases) {
    Check({Meta("retcode", c.retcode)});
    EXPECT_EQ(page.headers.back(),
              "USER-AGENT:Engine/1 wavforge " + VersionLabel(WAVFORGE_VERSION) + "\r\n");
    EXPECT_EQ(page.navigations.back(), "https://update.test/check");
    EXPECT_FALSE(wizard->Visible);
    EXPECT_EQ(Flag("Code"), c.retcode);
    EXPECT_EQ(Flag("LastUpdateCheck"), "2026-11-19 14:05:10");
    EXPECT_EQ(Flag("NextUpdateCheck"), c.next) << c.retcode;
    EXPECT_TRUE(UnloadTimer());
    EXPECT_EQ(page.document->uiHandler, nullptr);
    wizard.reset();
  }
}

TEST_F(UpdateCheckTest, OpensTheLinkAndShowsTheMessage) {
  Check({Meta("href", " https://dl.test/x\r\n"), Meta("message", "New", "Title")});
  ASSERT_EQ(processes.shell.size(), 1u);
  EXPECT_EQ(processes.shell[0].file, "iexplore");
  EXPECT_EQ(processes.shell[0].parameters, "https://dl.test/x");
  EXPECT_EQ(processes.shell[0].show_state, 1);
  wizard.reset();
  Check({Meta("message", "Newer")});
  ASSERT_EQ(ui.messages.size(), 2u);
  EXPECT_EQ(ui.messages[0].title, "Title");
  EXPECT_EQ(ui.messages[1].title, "wavforge Update Information");
  EXPECT_EQ(ui.messages[1].style, 64);
}

TEST_F(UpdateCheckTest, RunsTheScriptUnlessElevationTakesOver) {
  for (const bool takes_over : {false, true}) {
    elevation_takes_over = takes_over;
    scripts.runs.clear();
    Check({}, {WithId("code", "Main() { :; }"), WithId("update", "")});
    EXPECT_EQ(elevations.back(), "-update");
    const std::vector<std::string> expected{"Main() { :; }|Main"};
    EXPECT_EQ(scripts.runs, takes_over ? std::vector<std::string>{} : expected);
    EXPECT_EQ(UnloadTimer(), !takes_over);
    EXPECT_FALSE(wizard->Visible);
    wizard.reset();
  }
}

TEST_F(UpdateCheckTest, AnEmptyReplyClosesLaterAndAFailedOneAtOnce) {
  Wizard().SetUpdateURL("https://update.test/check");
  page.Complete(std::make_shared<HtmlDocument>());
  EXPECT_TRUE(UnloadTimer());
  EXPECT_FALSE(wizard->Released());
  wizard.reset();
  Wizard().SetUpdateURL("https://update.test/check");
  page.Events().NavigateError(nullptr, "https://update.test/check", 404);
  EXPECT_TRUE(wizard->Released());
  EXPECT_EQ(page.stops, 1);
  EXPECT_EQ(nav.stops, 1);
  EXPECT_EQ(Flag("Code"), "(none)");
}

}  // namespace
}  // namespace wavforge

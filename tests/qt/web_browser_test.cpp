#include <QTcpServer>
#include <QTest>
#include <QWebEnginePage>
#include <QWebEngineView>
#include <functional>
#include <memory>
#include <optional>

#include "qt/web_browser.h"
#include "support/isolated_home.h"

namespace wavforge::qt {
namespace {

using Attributes = std::vector<std::pair<std::string, std::string>>;

// Every event as a line, the last completed document, and a handler's own work on it.
struct RecordedEvents final : BrowserEvents {
  std::vector<std::string> log;
  std::shared_ptr<HtmlDocument> completed;
  std::function<void(HtmlDocument&)> on_complete;

  void TitleChange(const std::string&) override {}
  void CommandStateChange(int command, bool enable) override {
    log.push_back("command " + std::to_string(command) + (enable ? " on" : " off"));
  }
  void NavigateComplete2(const std::shared_ptr<HtmlDocument>&, const std::string& url) override {
    log.push_back("navigated " + url);
  }
  void DocumentComplete(const std::shared_ptr<HtmlDocument>& document,
                        const std::string& url) override {
    log.push_back("complete " + url);
    completed = document;
    if (on_complete) on_complete(*document);
  }
  void NavigateError(const std::shared_ptr<HtmlDocument>&, const std::string& url,
                     int status) override {
    log.push_back("error " + url + " " + std::to_string(status));
  }
};

struct Click final : ClickHandler {
  std::function<void()> run;
  void DefaultMethod() override { run(); }
};

class WebBrowserTest : public testing_support::IsolatedHomeTest {
 protected:
  void SetUp() override {
    IsolatedHomeTest::SetUp();
    browser = std::make_unique<WebBrowser>();
    browser->SetEvents(&events);
    browser->resize(400, 300);
    browser->show();
  }
  void TearDown() override {
    browser.reset();
    IsolatedHomeTest::TearDown();
  }

  // Starts a load and waits for the document it completes with.
  std::shared_ptr<HtmlDocument> Completed(const std::function<void()>& start) {
    const auto before = events.completed;
    start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return events.completed != before; }, 30000));
    return events.completed;
  }
  // Runs a script as the page's own script does, and gives its result as text.
  std::string PageScript(const QString& script) {
    auto result = std::make_shared<std::optional<QString>>();
    browser->View()->page()->runJavaScript(
        script, [result](const QVariant& value) { *result = value.toString(); });
    if (!QTest::qWaitFor([&] { return result->has_value(); }, 10000)) return "(no answer)";
    return (*result)->toStdString();
  }

  RecordedEvents events;
  std::unique_ptr<WebBrowser> browser;
};

TEST_F(WebBrowserTest, ThePageIsReadAfterItsLoadAndWhatHandlersChangeGoesBackIntoIt) {
  const std::string page = (Root() / "page.htm").string();
  testing_support::WriteFile(
      page,
      "<html><head><title>Assistant</title><meta name='version' content='2'>"
      "<meta id='baseform' content='frmMain' title='Base'></head><body><p>Choose &amp; go</p>"
      "<input type='checkbox' name='chkDelTemp' command='click' checked>"
      "<input type='RADIO' name='optFormat' index='1' disabled>"
      "<a command='go next' href='#'>Next</a><pre id='code'>Sub Main\nEnd Sub</pre></body></html>");
  auto clicked = std::make_shared<Click>();
  events.on_complete = [&](HtmlDocument& document) {
    document.all.at(1).onclick = clicked;
    document.all.at(3).setAttribute("command", "go prev");
    document.all.at(2).disabled = false;
  };
  const auto document = Completed([&] { browser->Navigate(page + "?url=x y"); });
  ASSERT_TRUE(document);

  const std::string url = "file://" + page + "?url=x%20y";
  EXPECT_EQ(document->URL, url);
  const std::vector<std::string> tail(events.log.end() - 5, events.log.end());
  EXPECT_EQ(tail, (std::vector<std::string>{"navigated " + url, "complete " + url, "command 2 off",
                                            "command 1 off", "command -1 on"}));
  ASSERT_EQ(document->metas.size(), 2u);
  EXPECT_EQ(document->meta("version")->tagName, "META");
  EXPECT_EQ(document->meta("version")->getAttribute("content"), "2");
  EXPECT_EQ(document->meta("baseform")->getAttribute("title"), "Base");
  std::vector<std::string> tags;
  for (const HtmlElement& element : document->all) tags.push_back(element.tagName);
  EXPECT_EQ(tags, (std::vector<std::string>{"P", "INPUT", "INPUT", "A", "PRE"}));
  const HtmlElement& box = document->all[1];
  EXPECT_EQ(box.name + " " + box.type + " " + std::to_string(box.checked), "chkDelTemp checkbox 1");
  EXPECT_EQ(
      box.attributes,
      (Attributes{
          {"type", "checkbox"}, {"name", "chkDelTemp"}, {"command", "click"}, {"checked", ""}}));
  EXPECT_EQ(document->all[2].type, "radio");
  EXPECT_EQ(document->getElementById("code")->innerHTML, "Sub Main\nEnd Sub");
  EXPECT_EQ(document->bodyInnerText.substr(0, 11), "Choose & go");
  EXPECT_EQ(document->activeElementIndex, -1);

  // The page's own click on the check box reaches the handler with the state of the page.
  std::string seen;
  clicked->run = [&] {
    seen = std::to_string(document->activeElementIndex) + " " +
           std::to_string(document->activeElement()->checked);
    document->all[2].checked = true;
    document->all[2].setAttribute("index", "2");
  };
  PageScript("document.querySelector('[name=chkDelTemp]').click()");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !seen.empty(); }, 10000));
  EXPECT_EQ(seen, "1 0");
  EXPECT_EQ(PageScript("var r = document.querySelector('[name=optFormat]');"
                       "[r.checked, r.disabled, r.getAttribute('index'),"
                       " document.querySelector('a').getAttribute('command'),"
                       " typeof qt, window.external].join()"),
            "true,false,2,go prev,undefined,");
}

TEST_F(WebBrowserTest, AnOnlinePageThatFailsShowsOurPageLinkingToTheLocalOne) {
  QTcpServer closed;
  ASSERT_TRUE(closed.listen(QHostAddress::LocalHost));
  const std::string base = "http://127.0.0.1:" + std::to_string(closed.serverPort()) + "/help/";
  closed.close();
  const std::string folder = (Root() / "help").string();
  testing_support::WriteFile(folder + "/start.htm",
                             "<html><head><title>Local start</title></head><body></body></html>");
  browser->SetOfflineFallback({base, folder, "Offline <help>", "No connection", "Read & stay"});

  const auto fallback = Completed([&] { browser->Navigate(base + "start.htm?url=index.htm"); });
  ASSERT_TRUE(fallback);
  EXPECT_EQ(events.log.at(0), "error " + base + "start.htm?url=index.htm -102");
  EXPECT_EQ(fallback->title, "Offline <help>");
  const HtmlElement* link = nullptr;
  for (const HtmlElement& element : fallback->all) {
    if (element.tagName == "A") link = &element;
  }
  ASSERT_TRUE(link);
  const std::string local = "file://" + folder + "/start.htm?url=index.htm";
  EXPECT_EQ(link->getAttribute("href"), local);
  EXPECT_NE(fallback->bodyInnerText.find("Read & stay"), std::string::npos);

  const auto opened = Completed([&] { PageScript("document.querySelector('a').click()"); });
  EXPECT_EQ(opened->URL, local);
  EXPECT_EQ(opened->title, "Local start");
}

}  // namespace
}  // namespace wavforge::qt

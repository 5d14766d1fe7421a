#include "qt/web_browser.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>
#include <QPrintDialog>
#include <QVBoxLayout>
#include <QWebChannel>
#include <QWebEngineDownloadRequest>
#include <QWebEngineHistory>
#include <QWebEngineHttpRequest>
#include <QWebEngineLoadingInfo>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWebEngineView>

#include "qt/browser_addresses.h"
#include "qt/host_ui.h"
#include "qt/page_clicks.h"
#include "qt/page_snapshot.h"

// Resources of a static library are registered by hand, outside any namespace.
static void RegisterPageScripts() {
  Q_INIT_RESOURCE(page_scripts);
}

namespace wavforge::qt {
namespace {

// The program's script world: page script sees neither its objects nor the channel.
constexpr quint32 kProgramWorld = QWebEngineScript::ApplicationWorld;

QString Resource(const QString& name) {
  static const bool registered = (RegisterPageScripts(), true);
  (void)registered;
  QFile file(name);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

const QString& SnapshotScript() {
  static const QString script = Resource(QStringLiteral(":/wavforge/page_scripts/snapshot.js"));
  return script;
}

QWebEngineScript PageScript(const QString& name, const QString& source, quint32 world,
                            bool subframes) {
  QWebEngineScript script;
  script.setName(name);
  script.setSourceCode(source);
  script.setWorldId(world);
  script.setInjectionPoint(QWebEngineScript::DocumentCreation);
  script.setRunsOnSubFrames(subframes);
  return script;
}

}  // namespace

WebBrowser::WebBrowser(QWidget* parent) : QFrame(parent), view_(new QWebEngineView(this)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(view_);
  setFocusProxy(view_);
  host_ui_ = new HostUi(*this, *view_);

  QWebEnginePage* page = view_->page();
  auto* channel = new QWebChannel(page);
  channel->registerObject(
      QStringLiteral("browser"),
      new PageClicks(
          [this](int generation, int index, bool checked) { Clicked(generation, index, checked); },
          channel));
  page->setWebChannel(channel, kProgramWorld);
  InstallScripts();

  connect(page, &QWebEnginePage::loadingChanged, this, &WebBrowser::LoadingChanged);
  connect(page, &QWebEnginePage::titleChanged, this, [this](const QString& title) {
    Fire([&](BrowserEvents& events) { events.TitleChange(title.toStdString()); });
  });
  // A move within the page (an anchor, the history API) loads nothing but moves the history.
  connect(page, &QWebEnginePage::urlChanged, this, [this] {
    if (!loading_ && !closing_) ReportCommandStates();
  });
  connect(page->profile(), &QWebEngineProfile::downloadRequested, this, &WebBrowser::Download);
  connect(view_, &QWebEngineView::printRequested, this, &WebBrowser::Print);
  connect(view_, &QWebEngineView::printFinished, this, [this] { printer_.reset(); });
}

WebBrowser::~WebBrowser() {
  closing_ = true;
  events_ = nullptr;
  // While the members still live: the page may answer pending scripts as it goes.
  delete view_;
  // The engine's print thread goes on drawing into the printer and tells nobody when it is
  // done; the printer stays with it.
  static_cast<void>(printer_.release());
}

void WebBrowser::InstallScripts() {
  QWebEngineScriptCollection& scripts = view_->page()->scripts();
  // The channel's transport exists in the top frame only, so frames are not read.
  scripts.insert(PageScript(QStringLiteral("wavforge-bridge"),
                            Resource(QStringLiteral(":/qtwebchannel/qwebchannel.js")) + u'\n' +
                                Resource(QStringLiteral(":/wavforge/page_scripts/bridge.js")),
                            kProgramWorld, false));
  scripts.insert(PageScript(QStringLiteral("wavforge-no-external"),
                            Resource(QStringLiteral(":/wavforge/page_scripts/no_external.js")),
                            QWebEngineScript::MainWorld, true));
}

void WebBrowser::SetEvents(BrowserEvents* events) {
  events_ = events;
  // The window that installed a host handler is going away.
  if (!events) host_ui_->Use(nullptr);
}

void WebBrowser::Navigate(const std::string& URL, const std::string& Headers) {
  QWebEngineHttpRequest request(NavigationUrl(URL));
  for (const auto& [name, value] : RequestHeaders(Headers)) request.setHeader(name, value);
  view_->load(request);
}

bool WebBrowser::GoBack() {
  if (!view_->history()->canGoBack()) return false;
  view_->back();
  return true;
}

bool WebBrowser::GoForward() {
  if (!view_->history()->canGoForward()) return false;
  view_->forward();
  return true;
}

void WebBrowser::Stop() {
  view_->stop();
}

void WebBrowser::Print() {
  if (printer_) return;  // one job at a time: the engine prints in the background
  auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  QPointer<WebBrowser> alive(this);
  auto* dialog = new QPrintDialog(printer.get(), this);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  if (dialog->exec() != QDialog::Accepted || !alive) return;
  printer_ = std::move(printer);
  view_->print(printer_.get());
}

void WebBrowser::SetOfflineFallback(const OfflineFallback& fallback) {
  fallback_ = fallback;
  // A failed load then leaves no error page, and no history entry, behind our own page.
  view_->page()->settings()->setAttribute(QWebEngineSettings::ErrorPageEnabled,
                                          fallback_.online_base.empty());
}

void WebBrowser::LoadingChanged(const QWebEngineLoadingInfo& info) {
  if (closing_) return;
  switch (info.status()) {
    case QWebEngineLoadingInfo::LoadStartedStatus:
      ++loads_;
      loading_ = true;
      return;
    case QWebEngineLoadingInfo::LoadSucceededStatus:
      loading_ = false;
      ReadPage();
      return;
    case QWebEngineLoadingInfo::LoadFailedStatus:
      loading_ = false;
      Failed(info);
      return;
    case QWebEngineLoadingInfo::LoadStoppedStatus:
      loading_ = false;
      ReportCommandStates();
      return;
  }
}

void WebBrowser::ReadPage() {
  const int load = loads_;
  const int snapshot = ++snapshots_;
  view_->page()->runJavaScript(
      QStringLiteral("(%1)(%2)").arg(SnapshotScript(), QString::number(snapshot)), kProgramWorld,
      [this, load, snapshot](const QVariant& result) {
        // A snapshot of a page that has been left already is no use.
        if (closing_ || loading_ || load != loads_) return;
        generation_ = snapshot;
        Loaded(result);
      });
}

void WebBrowser::Loaded(const QVariant& snapshot) {
  const std::shared_ptr<HtmlDocument> document = DocumentFromSnapshot(snapshot.toMap());
  document_ = document;
  shown_.Reset(*document);
  const std::string url = document->URL;
  if (!Fire([&](BrowserEvents& events) { events.NavigateComplete2(document, url); })) return;
  if (!Fire([&](BrowserEvents& events) { events.DocumentComplete(document, url); })) return;
  ReportCommandStates();
}

void WebBrowser::Failed(const QWebEngineLoadingInfo& info) {
  const int load = loads_;
  const std::string url = info.url().toString().toStdString();
  // An HTTP status for an answer of the server, else the engine's negative network error.
  const int status = info.errorCode();
  if (!Fire([&](BrowserEvents& events) { events.NavigateError(document_, url, status); })) return;
  const std::optional<QUrl> local = LocalCounterpart(info.url(), fallback_);
  // Unless the handler has gone somewhere else already.
  if (local && load == loads_) {
    view_->page()->setHtml(
        OfflinePage(fallback_, *local),
        local->adjusted(QUrl::RemoveFilename | QUrl::RemoveQuery | QUrl::RemoveFragment));
  }
  ReportCommandStates();
}

void WebBrowser::Clicked(int generation, int index, bool checked) {
  if (closing_ || !document_ || generation != generation_ || index < 0 ||
      index >= static_cast<int>(document_->all.size())) {
    return;
  }
  const std::shared_ptr<HtmlDocument> document = document_;
  document->activeElementIndex = index;
  document->all[static_cast<std::size_t>(index)].checked = checked;
  shown_.NoteChecked(index, checked);
  const std::shared_ptr<ClickHandler> handler =
      document->all[static_cast<std::size_t>(index)].onclick;
  if (!handler) return;
  QPointer<WebBrowser> alive(this);
  handler->DefaultMethod();
  if (alive) AfterHandler();
}

void WebBrowser::ShowAsText(const QUrl& url) {
  if (!network_) network_ = new QNetworkAccessManager(this);
  QNetworkReply* reply = network_->get(QNetworkRequest(url));
  connect(reply, &QNetworkReply::finished, this, [this, reply, url] {
    reply->deleteLater();
    if (reply->error() == QNetworkReply::NoError) {
      view_->page()->setContent(reply->readAll(), QStringLiteral("text/plain;charset=utf-8"), url);
    }
  });
}

void WebBrowser::Download(QWebEngineDownloadRequest* download) {
  // Every page of the profile asks here.
  if (download->page() != view_->page()) return;
  if (download->url().path().endsWith(QStringLiteral(".nav"), Qt::CaseInsensitive)) {
    // A navigation table is text the window reads; a static server that does not know the
    // name sends it as a download.
    download->cancel();
    ShowAsText(download->url());
    return;
  }
  const std::string folder = download_folder_ ? download_folder_() : std::string();
  if (!folder.empty()) {
    const QString path = QString::fromStdString(folder);
    QDir().mkpath(path);
    download->setDownloadDirectory(path);
  }
  download->accept();
}

bool WebBrowser::Fire(const std::function<void(BrowserEvents&)>& event) {
  if (!events_) return true;
  QPointer<WebBrowser> alive(this);
  event(*events_);
  return alive && AfterHandler();
}

bool WebBrowser::AfterHandler() {
  ApplyChanges();
  if (!after_event_) return true;
  QPointer<WebBrowser> alive(this);
  after_event_();
  return alive;
}

bool WebBrowser::ReportCommandStates() {
  const QWebEngineHistory* history = view_->history();
  const bool back = history->canGoBack();
  const bool forward = history->canGoForward();
  return Fire([&](BrowserEvents& events) { events.CommandStateChange(kCscNavigateBack, back); }) &&
         Fire([&](BrowserEvents& events) {
           events.CommandStateChange(kCscNavigateForward, forward);
         }) &&
         Fire([](BrowserEvents& events) { events.CommandStateChange(kCscUpdateCommands, true); });
}

void WebBrowser::ApplyChanges() {
  if (!document_) return;
  HtmlDocument& document = *document_;
  if (document.uiHandlerChanged) {
    document.uiHandlerChanged = false;
    host_ui_->Use(document.uiHandler);
  }
  QJsonObject changes = shown_.Take(document);
  if (document.focusRequested) {
    document.focusRequested = false;
    document.focused = true;
    view_->setFocus(Qt::OtherFocusReason);
    changes[QStringLiteral("focus")] = true;
  }
  if (changes.isEmpty()) return;
  view_->page()->runJavaScript(
      QStringLiteral("window.__wavforge && window.__wavforge.apply(%1, %2)")
          .arg(QString::number(generation_),
               QString::fromUtf8(QJsonDocument(changes).toJson(QJsonDocument::Compact))),
      kProgramWorld);
}

}  // namespace wavforge::qt

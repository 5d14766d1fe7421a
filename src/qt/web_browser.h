#pragma once

#include <QFrame>
#include <QPrinter>
#include <functional>
#include <memory>
#include <string>

#include "assistant/browser_control.h"
#include "qt/document_changes.h"

class QNetworkAccessManager;
class QWebEngineDownloadRequest;
class QWebEngineLoadingInfo;
class QWebEngineView;

namespace wavforge::qt {

class HostUi;

// A browser control on Qt WebEngine. After each load a script in the program's own script
// world reads the page into a document and keeps the page's elements there; the events go out
// with that document, and after every handler what it changed goes back into the page in one
// script call. Clicks on elements with a handler come back through a web channel that only
// that world sees: page script has neither the channel nor an external object.
class WebBrowser final : public QFrame, public BrowserControl {
 public:
  explicit WebBrowser(QWidget* parent = nullptr);
  ~WebBrowser() override;

  void SetEvents(BrowserEvents* events) override;
  void Navigate(const std::string& URL, const std::string& Headers = "") override;
  bool GoBack() override;
  bool GoForward() override;
  void Stop() override;
  void Print() override;
  std::shared_ptr<HtmlDocument> Document() override { return document_; }
  void SetOfflineFallback(const OfflineFallback& fallback) override;

  // Where downloads made in the page go; without a function, or when it answers empty, the
  // engine's own download folder.
  void SetDownloadFolder(std::function<std::string()> folder) {
    download_folder_ = std::move(folder);
  }
  // Runs after every event and click handler, once its changes are in the page: the front end
  // shows there what the handler changed in its windows.
  void SetAfterEvent(std::function<void()> after) { after_event_ = std::move(after); }
  QWebEngineView* View() const { return view_; }

 private:
  void InstallScripts();
  void LoadingChanged(const QWebEngineLoadingInfo& info);
  void ReadPage();
  void Loaded(const QVariant& snapshot);
  void Failed(const QWebEngineLoadingInfo& info);
  void Clicked(int generation, int index, bool checked);
  void Download(QWebEngineDownloadRequest* download);
  // Loads the text at url into the page as plain text.
  void ShowAsText(const QUrl& url);
  // Runs a handler, then puts its changes into the page and lets the front end show the rest;
  // false when the handler deleted this browser.
  bool Fire(const std::function<void(BrowserEvents&)>& event);
  bool AfterHandler();
  bool ReportCommandStates();
  void ApplyChanges();

  QWebEngineView* view_;
  QNetworkAccessManager* network_ = nullptr;
  HostUi* host_ui_;
  BrowserEvents* events_ = nullptr;
  std::shared_ptr<HtmlDocument> document_;
  DocumentChanges shown_;
  int loads_ = 0;  // loads started; a snapshot of an older load is dropped
  bool loading_ = false;
  int snapshots_ = 0;
  int generation_ = 0;  // the snapshot the document comes from, named by the page's clicks
  OfflineFallback fallback_;
  std::function<std::string()> download_folder_;
  std::function<void()> after_event_;
  std::unique_ptr<QPrinter> printer_;  // while a print job runs
  bool closing_ = false;
};

}  // namespace wavforge::qt

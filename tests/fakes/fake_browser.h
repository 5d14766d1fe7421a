#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "assistant/browser_control.h"

namespace fakes {

// A browser that records what it is asked to do and plays events and documents back when a
// test says so.
class FakeBrowser final : public wavforge::BrowserControl {
 public:
  std::vector<std::string> navigations;
  std::vector<std::string> headers;
  int backs = 0, forwards = 0, stops = 0, prints = 0;
  wavforge::OfflineFallback fallback;
  std::shared_ptr<wavforge::HtmlDocument> document;
  // Runs inside Navigate, as a real browser may deliver events before it returns.
  std::function<void()> while_navigating;

  void SetEvents(wavforge::BrowserEvents* events) override { events_ = events; }
  void Navigate(const std::string& url, const std::string& extra) override {
    navigations.push_back(url);
    headers.push_back(extra);
    if (while_navigating) while_navigating();
  }
  bool GoBack() override { return ++backs, true; }
  bool GoForward() override { return ++forwards, true; }
  void Stop() override { ++stops; }
  void Print() override { ++prints; }
  std::shared_ptr<wavforge::HtmlDocument> Document() override { return document; }
  void SetOfflineFallback(const wavforge::OfflineFallback& f) override { fallback = f; }

  // A page has loaded: it becomes the document, and both completion events arrive.
  void Complete(std::shared_ptr<wavforge::HtmlDocument> page) {
    document = std::move(page);
    events_->NavigateComplete2(document, document->URL);
    events_->DocumentComplete(document, document->URL);
  }
  wavforge::BrowserEvents& Events() { return *events_; }

 private:
  wavforge::BrowserEvents* events_ = nullptr;
};

}  // namespace fakes

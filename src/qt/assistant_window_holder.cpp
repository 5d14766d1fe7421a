#include "qt/assistant_window_holder.h"

#include <QTimer>

#include "assistant/startup_update_check.h"
#include "qt/web_browser.h"
#include "settings/registry_access.h"

namespace wavforge::qt {
namespace {

// The form goes first: it detaches itself from the browsers, which go with the window.
void Destroy(std::shared_ptr<frmWizard>& form, std::shared_ptr<FormWindow>& window) {
  form.reset();
  window.reset();
}

}  // namespace

AssistantWindowHolder::AssistantWindowHolder(const platform::Ports& ports,
                                             platform::UserInterface& ui, ProgramObjects& program)
    : ports_(ports), ui_(ui), program_(program) {}

AssistantWindowHolder::~AssistantWindowHolder() {
  Destroy(form_, window_);
  Destroy(released_form_, released_window_);
}

void AssistantWindowHolder::Ensure() {
  if (form_ && !form_->Released()) return;
  Destroy(form_, window_);
  form_ = std::make_shared<frmWizard>(ports_, ui_, program_);
  form_->SetScriptControl(&scripts_);
  platform::Registry& registry = ports_.registry;
  window_ = std::make_shared<FormWindow>(*form_, ui_, [&registry](QWidget* parent) {
    auto* browser = new WebBrowser(parent);
    // What a page's events and clicks change shows in every window, as after a window's own.
    browser->SetAfterEvent([browser] {
      if (auto* window = dynamic_cast<FormWindow*>(browser->window())) window->AfterEvent();
    });
    browser->SetDownloadFolder([&registry] {
      return std::get<std::string>(RegRead(registry, platform::RegistryRoot::kCurrentUser,
                                           kBrowserSettingsKey, kDownloadDirectoryValue,
                                           std::string()));
    });
    return std::pair<QWidget*, BrowserControl*>(browser, browser);
  });
  window_->OnClosed([this] { Release(); });
  window_->LoadForm();
}

void AssistantWindowHolder::SetUrl(const std::string& Url, bool Online) {
  Ensure();
  form_->SetUrl(Url, Online);
  window_->AfterEvent();
}

void AssistantWindowHolder::UnloadIfLoaded() {
  if (!form_ || form_->Released()) return;
  form_->Unload();
  window_->AfterEvent();
}

void AssistantWindowHolder::CheckForUpdatesAtStart(bool asked) {
  const std::string address = StartupUpdateAddress(asked, program_.settings.AutoUpdateCheck, ports_,
                                                   program_.language.Get());
  if (address.empty()) return;
  Ensure();
  form_->SetUpdateURL(address);
  window_->AfterEvent();
}

void AssistantWindowHolder::Release() {
  if (!form_ || !form_->Released()) return;
  // Not inside the window's own events: the pair goes once they have returned, or with the
  // holder, which goes before the application object.
  Destroy(released_form_, released_window_);
  released_form_ = std::move(form_);
  released_window_ = std::move(window_);
  QTimer::singleShot(0, released_window_.get(),
                     [this] { Destroy(released_form_, released_window_); });
}

}  // namespace wavforge::qt

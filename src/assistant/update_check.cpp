#include "assistant/update_check.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "settings/registry_access.h"
#include "ui/ignoring_errors.h"

namespace wavforge {
namespace {

constexpr const char* kFlags = "Flags";

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string MetaContent(const HtmlDocument& document, const char* name) {
  const HtmlElement* meta = document.meta(name);
  return meta ? meta->getAttribute("content").value_or("") : "";
}

}  // namespace

double DaysUntilNextCheck(const std::string& retcode) {
  const auto separator = retcode.find(';');
  if (separator == std::string::npos) return 1;
  std::string field = retcode.substr(separator + 1);
  field = field.substr(0, field.find(';'));
  auto start = field.find_first_not_of(' ');
  if (start == std::string::npos) return 0;
  // A number may carry its sign, "+7" as well as "-7"; from_chars takes only the minus.
  const bool plus = field[start] == '+';
  if (plus) ++start;
  if (plus && (start == field.size() || field[start] == '-')) return 0;
  double days = 0;
  const char* first = field.data() + start;
  const auto result = std::from_chars(first, field.data() + field.size(), days);
  return result.ec == std::errc() && std::isfinite(days) ? days : 0;
}

std::string DateTimeText(const platform::LocalTime& time, double days) {
  using namespace std::chrono;
  // Further than a century either way is a century: the text keeps its four-digit year.
  days = std::clamp(days, -36525.0, 36525.0);
  const sys_days date{year{time.year} / time.month / time.day};
  const auto at = date + hours{time.hour} + minutes{time.minute} + seconds{time.second} +
                  seconds{std::llround(days * 86400.0)};
  const auto day = floor<std::chrono::days>(at);
  const year_month_day ymd{day};
  const hh_mm_ss clock{at - day};
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u %02d:%02d:%02d", static_cast<int>(ymd.year()),
                static_cast<unsigned>(ymd.month()), static_cast<unsigned>(ymd.day()),
                static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  return text;
}

UpdateCheck::UpdateCheck(const platform::Ports& ports, platform::UserInterface& ui,
                         platform::ScriptControl* scripts, UpdateCheckWindow window)
    : ports_(ports), ui_(ui), scripts_(scripts), window_(std::move(window)) {}

void UpdateCheck::NavigateComplete(const std::shared_ptr<HtmlDocument>& document) {
  if (document && document->bodyInnerHTML.empty()) window_.set_unload_timer(true);
}

void UpdateCheck::DocumentComplete(const std::shared_ptr<HtmlDocument>& document) {
  if (!document) return;
  IgnoringErrors([&] {
    const std::string retcode = MetaContent(*document, "retcode");
    if (!retcode.empty()) StoreReturnCode(retcode);
  });
  IgnoringErrors([&] {
    std::string url;
    for (const char c : MetaContent(*document, "href")) {
      if (c != '\r' && c != '\n') url += c;
    }
    url = Trimmed(url);
    if (!url.empty()) ports_.processes.ShellExecute("iexplore", url, "", 1);
  });
  IgnoringErrors([&] {
    const HtmlElement* message = document->meta("message");
    const std::string text = message ? message->getAttribute("content").value_or("") : "";
    if (text.empty()) return;
    const std::string title = message->getAttribute("title").value_or("");
    ui_.MessageBox(text, 64, title.empty() ? "wavforge Update Information" : title);
  });
  bool taken_over = false;
  IgnoringErrors([&] {
    const HtmlElement* code = document->getElementById("code");
    if (!code || code->innerHTML.empty()) return;
    if (document->getElementById("update") && window_.run_elevated("-update")) {
      taken_over = true;
      return;
    }
    window_.set_unload_timer(false);
    if (scripts_) scripts_->Run(code->innerHTML, "Main");
  });
  if (!taken_over) window_.set_unload_timer(true);
}

void UpdateCheck::NavigateError() {
  window_.close_now();
}

void UpdateCheck::StoreReturnCode(const std::string& retcode) {
  SaveAppSetting(ports_.registry, kFlags, "Code", retcode);
  const double days = DaysUntilNextCheck(retcode);
  const platform::LocalTime now = ports_.clock.Now();
  SaveAppSetting(ports_.registry, kFlags, "LastUpdateCheck", DateTimeText(now, 0));
  SaveAppSetting(ports_.registry, kFlags, "NextUpdateCheck", DateTimeText(now, days));
}

}  // namespace wavforge

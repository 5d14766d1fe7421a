#pragma once

#include <functional>
#include <memory>
#include <string>

#include "assistant/update_check_events.h"
#include "platform/ports.h"
#include "platform/script_control.h"
#include "platform/user_interface.h"

namespace wavforge {

// What the update check needs of the hidden window it runs in.
struct UpdateCheckWindow {
  std::function<void(bool)> set_unload_timer;
  std::function<void()> close_now;
  // True when it took over (restarting elevated or asking the user); the check then ends.
  std::function<bool(const std::string&)> run_elevated;
};

// Acts on the update information page: stores the return code and the next check, opens the
// download page, shows the message and runs the update script.
class UpdateCheck : public UpdateCheckEvents {
 public:
  UpdateCheck(const platform::Ports& ports, platform::UserInterface& ui,
              platform::ScriptControl* scripts, UpdateCheckWindow window);

  void NavigateComplete(const std::shared_ptr<HtmlDocument>& document) override;
  void DocumentComplete(const std::shared_ptr<HtmlDocument>& document) override;
  void NavigateError() override;

 private:
  void StoreReturnCode(const std::string& retcode);

  const platform::Ports& ports_;
  platform::UserInterface& ui_;
  platform::ScriptControl* scripts_;
  UpdateCheckWindow window_;
};

// Days until the next check from a return code "code;days": 1 without a second field.
double DaysUntilNextCheck(const std::string& retcode);
// "YYYY-MM-DD hh:mm:ss" of a time plus a number of days, fractions included.
std::string DateTimeText(const platform::LocalTime& time, double days);

}  // namespace wavforge

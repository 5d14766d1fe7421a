#include "settings/elevation.h"

#include "platform/path_rules.h"
#include "settings/product.h"
#include "settings/registry_access.h"

namespace wavforge {
namespace {

constexpr const char* kShortcutName = "RunAsAdmin.lnk";
constexpr const char* kExecutableName = "wavforge";

}  // namespace

bool IsNT6(const platform::Ports& ports) {
  return ports.processes.CanElevate();
}

std::string ElevatedParameters(const std::string& program_folder, const std::string& parameter) {
  std::string text = "/q /c ";
  text += "\"start \"\" ";
  // The program's own path, with this platform's separator and executable suffix.
  text += "\"" + program_folder + platform::kPathSeparator + kExecutableName +
          platform::kExecutableSuffix + "\" ";
  text += parameter;
  text += "\"";
  return text;
}

bool RunElevated(const std::string& parameter, const platform::Ports& ports,
                 platform::UserInterface& ui, const clsLocalizeControls& language,
                 const std::function<void()>& close_main_window) {
  if (!IsNT6(ports)) return false;
  if (HasMachineWriteAccess(ports.registry, ports.clock)) return false;
  if (!ui.AskYesNo(language.FormatMsg("989VI"), platform::kCriticalIcon | platform::kYesNo,
                   kProductName)) {
    return true;
  }
  const std::string folder = ports.environment.ProgramFolder();
  ports.processes.ShellExecute(folder + platform::kPathSeparator + kShortcutName,
                               ElevatedParameters(folder, parameter), folder, 0);
  close_main_window();
  return true;
}

}  // namespace wavforge

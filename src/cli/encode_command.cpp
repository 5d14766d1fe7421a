#include "cli/encode_command.h"

#include <filesystem>

#include "cli/dry_run_ports.h"
#include "cli/job_follower.h"
#include "cli/terminal_user_interface.h"
#include "encoding/encode_job.h"
#include "shell/tool_path.h"

namespace wavforge::cli {

int RunEncode(const platform::Ports& ports, const std::vector<std::string>& files,
              const EncodeOptions& options, std::ostream& out, std::ostream& err) {
  TerminalUserInterface ui(err);
  // What the main window does at start-up, then what Start does.
  AddToolFolderToPath(ports);
  Settings settings;
  SettingsLoader loader(ports);
  loader.LoadSettings(settings);
  LanguageObject language(settings, ports, ui);
  // The script runs in the program folder, so relative names would point elsewhere there.
  std::vector<std::string> absolute;
  for (const auto& file : files) {
    std::error_code error;
    const auto path = std::filesystem::absolute(file, error);
    absolute.push_back(error ? file : path.string());
  }
  FileList selection(std::move(absolute));

  if (options.dry_run) {
    const DryRunPorts dry(ports);
    EncodingJob job(dry.ports(), ui, loader, settings, language);
    const JobOutcome outcome = job.EncodeJob(selection);
    if (!outcome.started) return 1;
    out << outcome.script;
    if (!outcome.script.empty() && outcome.script.back() != '\n') out << '\n';
    return 0;
  }

  EncodingJob job(ports, ui, loader, settings, language);
  const JobOutcome outcome = job.EncodeJob(selection);
  if (!outcome.started) {
    err << "wavforge-cli: could not write the job script " << outcome.script_path << ": "
        << outcome.error_description << '\n';
    return 1;
  }
  out << outcome.script_path << '\n';
  if (!options.wait) return 0;
  return FollowJob(ports, outcome, out, err);
}

}  // namespace wavforge::cli

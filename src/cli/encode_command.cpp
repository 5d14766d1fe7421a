#include "cli/encode_command.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <filesystem>

#include "cli/dry_run_ports.h"
#include "cli/job_follower.h"
#include "cli/job_plan.h"
#include "cli/terminal_user_interface.h"
#include "encoding/encode_job.h"
#include "platform/path_rules.h"
#include "settings/encoders_at_a_time.h"
#include "shell/tool_path.h"

namespace wavforge::cli {
namespace {

constexpr int kRefused = 2;

// The width of the terminal on standard output; 0 when it is none.
std::size_t TerminalWidth() {
  if (!isatty(STDOUT_FILENO)) return 0;
  winsize size{};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col - 1;
  return 79;
}

}  // namespace

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

  // The job as it would be, with nothing written, to check it before it runs.
  FileList planned_selection(absolute);
  const DryRunPorts dry(ports);
  EncodingJob dry_job(dry.ports(), ui, loader, settings, language);
  const JobOutcome dry_outcome = dry_job.EncodeJob(planned_selection);
  if (!dry_outcome.started) return 1;
  JobPlan plan = PlanJob(dry_outcome, settings.DelTemp, ports);
  plan.encoders_at_a_time =
      static_cast<std::size_t>(EncodersAtATime(ports.profiles, settings.SettingsFile));
  const bool refused = !plan.problems.empty() && !options.force;
  for (const auto& problem : plan.problems) err << "wavforge-cli: " << problem << '\n';

  if (options.dry_run) {
    for (const auto& file : plan.files) {
      out << "plan: " << file.source << " -> " << (file.output.empty() ? "?" : file.output) << '\n';
    }
    out << dry_outcome.script;
    if (!dry_outcome.script.empty() && dry_outcome.script.back() != '\n') out << '\n';
    return refused ? kRefused : 0;
  }
  if (refused) {
    err << "wavforge-cli: nothing was written; --force runs the job anyway\n";
    return kRefused;
  }

  const std::string tools_log =
      settings.LogFilePath + std::string(1, platform::kPathSeparator) + "encode.log";
  const std::uint64_t log_offset = ports.files.FileSize(tools_log).value_or(0);
  FileList selection(std::move(absolute));
  EncodingJob job(ports, ui, loader, settings, language);
  const JobOutcome outcome = job.EncodeJob(selection);
  if (!outcome.started) {
    err << "wavforge-cli: could not write the job script " << outcome.script_path << ": "
        << outcome.error_description << '\n';
    return 1;
  }
  out << outcome.script_path << '\n';
  if (!options.wait) return 0;
  return FollowJob(ports, outcome, plan, tools_log, log_offset, TerminalWidth(), out, err);
}

}  // namespace wavforge::cli

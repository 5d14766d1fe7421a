#include "cli/job_follower.h"

#include <chrono>
#include <thread>

#include "encoding/job_watch.h"
#include "encoding/source_names.h"

namespace wavforge::cli {
namespace {

using Clock = std::chrono::steady_clock;
// Finer than the window's quarter second: a terminal waiting for the end should not lose up to
// 250 ms per job. Each tick is the same test the window makes.
constexpr auto kTick = std::chrono::milliseconds(50);
// A script that has not shown itself by then will not run at all.
constexpr auto kStartTimeout = std::chrono::seconds(10);

bool IsExtensionChar(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

// The timer's view has nothing to show on a terminal.
class SilentView final : public JobStatusView {
 public:
  void SetStartEnabled(bool) override {}
  void ShowStatusPicture(int) override {}
};

bool HasContent(const platform::FileSystem& disk, const std::string& path) {
  return !path.empty() && disk.FileSize(path).value_or(0) > 0;
}

}  // namespace

std::string ExpectedOutput(const JobFile& file) {
  const std::string stem = file.output_path + ".";
  const auto at = file.command.find(stem);
  if (at == std::string::npos) return {};
  std::size_t end = at + stem.size();
  while (end < file.command.size() && IsExtensionChar(file.command[end])) ++end;
  if (end == at + stem.size()) return {};
  return file.command.substr(at, end - at);
}

std::size_t CurrentFile(const std::vector<JobFile>& files, const platform::FileSystem& disk) {
  std::size_t current = 0;
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (disk.FileSize(ExpectedOutput(files[i]))) current = i;
  }
  return current;
}

int FollowJob(const platform::Ports& ports, const JobOutcome& job, std::ostream& out,
              std::ostream& err) {
  JobWatch watch(ports.windows);
  SilentView view;
  const FileList no_selection;
  const auto started = Clock::now();
  bool seen = false;
  std::size_t shown = job.files.size();  // nothing shown yet
  while (true) {
    const bool running = watch.Tick(no_selection, view);
    seen = seen || running;
    if (running && !job.files.empty()) {
      const std::size_t current = CurrentFile(job.files, ports.files);
      if (current != shown) {
        shown = current;
        out << "[" << current << "/" << job.files.size() << " done] encoding "
            << FileTitle(job.files[current].source) << std::endl;
      }
    }
    const bool script_left = ports.files.FileSize(job.script_path).has_value();
    if (!running && (seen || !script_left)) break;
    if (!seen && Clock::now() - started > kStartTimeout) {
      err << "wavforge-cli: the job script " << job.script_path << " did not start\n";
      return 2;
    }
    std::this_thread::sleep_for(kTick);
  }

  int missing = 0;
  for (const auto& file : job.files) {
    const std::string output = ExpectedOutput(file);
    if (HasContent(ports.files, output)) {
      out << "wrote " << output << '\n';
    } else {
      ++missing;
      out << "missing " << (output.empty() ? file.output_path : output) << " (from " << file.source
          << ")\n";
    }
  }
  out << job.files.size() - missing << " of " << job.files.size() << " files encoded\n";
  return missing == 0 ? 0 : 1;
}

}  // namespace wavforge::cli

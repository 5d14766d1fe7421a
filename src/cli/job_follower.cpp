#include "cli/job_follower.h"

#include <chrono>
#include <fstream>
#include <iterator>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "cli/progress_line.h"
#include "encoding/job_watch.h"
#include "encoding/log_quoting.h"
#include "encoding/media_duration.h"
#include "encoding/source_names.h"
#include "platform/posix/console_title_search.h"

namespace wavforge::cli {
namespace {

using Clock = std::chrono::steady_clock;
// Each look is the same test the window makes. Between looks we sleep until a process of the
// job with a console title ends (an encoder or the interpreter), so the job's end is seen at
// once; the progress line is kept fresh at this pace otherwise.
constexpr auto kTick = std::chrono::milliseconds(50);
// A script that has not shown itself by then will not run at all.
constexpr auto kStartTimeout = std::chrono::seconds(10);

// The timer's view has nothing to show on a terminal.
class SilentView final : public JobStatusView {
 public:
  void SetStartEnabled(bool) override {}
  void ShowStatusPicture(int) override {}
};

// What became of one file: the output it has, or why it has none.
struct Result {
  bool done = false;
  std::string output;
  std::string failure;
};

// Follows the tools' log from where the job started, reading each line once: a long job
// writes thousands of lines, and the log is looked at after every encoder.
class ToolLines {
 public:
  ToolLines(std::string path, std::uint64_t offset, const JobPlan& plan)
      : path_(std::move(path)), offset_(offset) {
    for (std::size_t i = 0; i < plan.files.size(); ++i) files_[plan.files[i].source].push_back(i);
  }

  void ReadNew(std::vector<Result>& results) {
    std::ifstream log(path_, std::ios::binary);
    if (!log) return;
    log.seekg(static_cast<std::streamoff>(offset_));
    const std::string text{std::istreambuf_iterator<char>(log), {}};
    // A line still being written is read whole next time.
    const std::size_t end = text.rfind('\n');
    if (end == std::string::npos) return;
    offset_ += end + 1;
    std::size_t start = 0;
    while (start <= end) {
      const std::size_t stop = text.find('\n', start);
      Read(std::string_view(text).substr(start, stop - start), results);
      start = stop + 1;
    }
  }

 private:
  void Read(std::string_view line, std::vector<Result>& results) {
    constexpr std::string_view kEncoded = "wavforge-encode: encoded ";
    constexpr std::string_view kFailed = "wavforge-encode: could not encode ";
    const std::size_t encoded = line.find(kEncoded);
    const std::size_t failed = encoded == line.npos ? line.find(kFailed) : line.npos;
    if (encoded == line.npos && failed == line.npos) return;
    std::size_t at = encoded != line.npos ? encoded + kEncoded.size() : failed + kFailed.size();
    const auto source = UnquoteFromLog(line, at);
    const auto file = source ? files_.find(*source) : files_.end();
    if (file == files_.end()) return;
    Result result{true, {}, {}};
    if (encoded != line.npos) {
      if (line.substr(at, 4) != " as ") return;
      at += 4;
      const auto output = UnquoteFromLog(line, at);
      if (!output) return;
      result.output = *output;
    } else {
      if (line.substr(at, 2) != ": ") return;
      result.failure = line.substr(at + 2);
    }
    for (const std::size_t i : file->second) results[i] = result;
  }

  std::string path_;
  std::uint64_t offset_;
  std::unordered_map<std::string, std::vector<std::size_t>> files_;
};

bool IsComplete(const platform::Ports& ports, const std::string& output, const PlannedFile& file) {
  const auto opened = ports.binary_files.OpenForReading(output);
  if (!opened) return false;
  const std::string extension = output.substr(output.rfind('.') + 1);
  // Of a format we cannot measure, a file with content is all we can check.
  if (!PlayingSeconds(*opened, extension) && !KnowsContainer(extension)) return opened->Size() > 0;
  return IsCompleteOutput(*opened, extension, file.seconds);
}

// A file outside the tool is done once its output appears.
void LookForOutputs(const platform::Ports& ports, const JobPlan& plan,
                    std::vector<Result>& results) {
  for (std::size_t i = 0; i < plan.files.size(); ++i) {
    const auto& file = plan.files[i];
    if (!file.through_tool && !results[i].done && ports.files.FileSize(file.output).value_or(0)) {
      results[i] = {true, file.output, {}};
    }
  }
}

// The second name wavforge-encode gives a recording while its encoder runs.
std::string HoldOf(const std::string& source) {
  return BasePath(source) + " (encoding)" + source.substr(source.size() - 4);
}

// The files whose encoders run now: the tool keeps a second name of each recording while its
// encoder runs, and also while it waits for its turn, which comes in the script's order, so only
// the first ones count. A step without one (normalising, a tool of another fix file) shows as the
// first file not done.
std::vector<std::string> BeingEncoded(const platform::Ports& ports, const JobPlan& plan,
                                      const std::vector<Result>& results) {
  std::vector<std::string> names;
  const PlannedFile* first_open = nullptr;
  for (std::size_t i = 0; i < plan.files.size(); ++i) {
    if (results[i].done) continue;
    const std::string& source = plan.files[i].source;
    if (!first_open) first_open = &plan.files[i];
    if (names.size() < plan.encoders_at_a_time && ports.files.FileSize(HoldOf(source))) {
      names.push_back(FileTitle(source));
    }
  }
  if (names.empty() && first_open) names.push_back(FileTitle(first_open->source));
  return names;
}

// How far the job is, by how long the finished recordings play (by their count where some
// length is not known).
std::pair<double, double> DoneAndTotal(const JobPlan& plan, const std::vector<Result>& results) {
  bool all_known = true;
  for (const auto& file : plan.files) all_known = all_known && file.seconds.has_value();
  double done = 0;
  double total = 0;
  for (std::size_t i = 0; i < plan.files.size(); ++i) {
    const double weight = all_known ? *plan.files[i].seconds : 1.0;
    total += weight;
    if (results[i].done) done += weight;
  }
  return {done, total};
}

}  // namespace

int FollowJob(const platform::Ports& ports, const JobOutcome& job, const JobPlan& plan,
              const std::string& tools_log, std::uint64_t log_offset, std::size_t terminal_width,
              std::ostream& out, std::ostream& err) {
  JobWatch watch(ports.windows);
  SilentView view;
  const FileList no_selection;
  const auto started = Clock::now();
  bool seen = false;
  std::vector<Result> results(plan.files.size());
  ToolLines tool_lines(tools_log, log_offset, plan);
  std::size_t shown = plan.files.size() + 1;  // nothing shown yet
  std::string line_shown;
  while (true) {
    const bool running = watch.Tick(no_selection, view);
    seen = seen || running;
    tool_lines.ReadNew(results);
    LookForOutputs(ports, plan, results);
    std::size_t done = 0;
    for (const auto& result : results) done += result.done ? 1 : 0;
    if (running && done < plan.files.size() && (terminal_width != 0 || done != shown)) {
      const auto elapsed = Clock::now() - started;
      const auto [done_weight, total_weight] = DoneAndTotal(plan, results);
      const std::string line =
          ProgressLine(done, plan.files.size(), BeingEncoded(ports, plan, results),
                       std::chrono::duration_cast<std::chrono::seconds>(elapsed),
                       TimeLeft(elapsed, done_weight, total_weight), terminal_width);
      if (terminal_width == 0) {
        out << line << std::endl;
      } else if (line != line_shown) {
        // One line, rewritten in place; spaces wipe what a longer line left.
        const std::size_t wipe =
            line_shown.size() > line.size() ? line_shown.size() - line.size() : 0;
        out << '\r' << line << std::string(wipe, ' ') << std::flush;
        line_shown = line;
      }
      shown = done;
    }
    const bool script_left = ports.files.FileSize(job.script_path).has_value();
    if (!running && (seen || !script_left)) break;
    if (!seen && Clock::now() - started > kStartTimeout) {
      err << "wavforge-cli: the job script " << job.script_path << " did not start\n";
      return 2;
    }
    platform::posix::WaitForTitleHolderToEnd(kTick);
  }

  if (!line_shown.empty()) out << '\n';
  std::size_t failed = 0;
  for (std::size_t i = 0; i < plan.files.size(); ++i) {
    const PlannedFile& file = plan.files[i];
    const Result& result = results[i];
    if (!result.failure.empty()) {
      out << "failed " << file.source << ": " << result.failure << '\n';
    } else if (file.through_tool && !result.done) {
      out << "failed " << file.source << ": wavforge-encode did not report (see " << tools_log
          << ")";
      const std::string hold = HoldOf(file.source);
      if (ports.files.FileSize(hold)) out << "; the recording is kept as " << hold;
      out << '\n';
    } else if (result.output.empty() || !ports.files.FileSize(result.output)) {
      out << "missing " << (file.output.empty() ? job.files[i].output_path : file.output)
          << " (from " << file.source << ")\n";
    } else if (!IsComplete(ports, result.output, file)) {
      out << "incomplete " << result.output << " (from " << file.source << ")\n";
    } else {
      out << "wrote " << result.output << '\n';
      continue;
    }
    ++failed;
  }
  out << plan.files.size() - failed << " of " << plan.files.size() << " files encoded\n";
  return failed == 0 ? 0 : 1;
}

}  // namespace wavforge::cli

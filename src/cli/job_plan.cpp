#include "cli/job_plan.h"

#include <filesystem>
#include <map>
#include <set>

#include "encoding/delete_reach.h"
#include "encoding/media_duration.h"
#include "encoding/source_names.h"
#include "platform/command_line.h"

namespace wavforge::cli {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kTool = "wavforge-encode";
// Characters no Windows file name holds, and which the interpreter would read as syntax.
constexpr std::string_view kScriptSyntax = "\"\r\n%*?";

bool IsExtensionChar(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

// The output a command names: the tool's extension argument, or the output path followed by
// the extension that a command of the user's own writes after it.
PlannedFile Describe(const JobFile& file) {
  PlannedFile planned{file.source, {}, false, {}};
  const auto words = platform::SplitCommandLine(file.command.substr(0, file.command.find('\r')));
  if (words.size() >= 4 && fs::path(words[0]).filename() == kTool && words[1] != "--normalize") {
    planned.through_tool = true;
    planned.output = file.output_path + "." + words[3];
    return planned;
  }
  const std::string stem = file.output_path + ".";
  const auto at = file.command.find(stem);
  if (at == std::string::npos) return planned;
  std::size_t end = at + stem.size();
  while (end < file.command.size() && IsExtensionChar(file.command[end])) ++end;
  if (end > at + stem.size()) planned.output = file.command.substr(at, end - at);
  return planned;
}

}  // namespace

JobPlan PlanJob(const JobOutcome& dry_run, bool del_temp, const platform::Ports& ports) {
  JobPlan plan;
  auto& problems = plan.problems;
  std::map<std::string, std::string> writers;  // output -> the first source writing it
  std::set<std::string> sources;
  for (const JobFile& file : dry_run.files) sources.insert(file.source);
  for (const JobFile& file : dry_run.files) {
    PlannedFile planned = Describe(file);
    const std::string& source = file.source;
    std::error_code error;
    const auto status = fs::status(source, error);
    if (source.find_first_of(kScriptSyntax) != std::string::npos) {
      problems.push_back(source +
                         ": the name holds a double quote, a line end, %, * or ?, "
                         "which cannot stand in a script line");
    } else if (!fs::exists(status)) {
      problems.push_back(source + " does not exist");
    } else if (!fs::is_regular_file(status)) {
      problems.push_back(source + " is not a regular file");
    } else if (auto opened = ports.binary_files.OpenForReading(source)) {
      planned.seconds = PlayingSeconds(*opened, "wav", true);
    }
    if (!planned.output.empty()) {
      const auto [first, fresh] = writers.emplace(planned.output, source);
      if (!fresh) {
        problems.push_back(source + " and " + first->second + " would both be written to " +
                           planned.output);
      } else if (sources.count(planned.output) != 0) {
        problems.push_back("the output of " + source + " is the source " + planned.output);
      } else if (fs::exists(fs::symlink_status(planned.output, error))) {
        problems.push_back(planned.output + " already exists (from " + source + ")");
      }
    }
    plan.files.push_back(std::move(planned));
  }
  for (const PlannedFile& file : plan.files) {
    for (const PlannedFile& other : plan.files) {
      if (&other == &file || !del_temp) continue;
      const std::string base = BasePath(file.source);
      if (DeleteLineReaches(base, other.source)) {
        problems.push_back("deleting " + file.source + " when it is done would also delete " +
                           other.source);
      } else if (!other.output.empty() && DeleteLineReaches(base, other.output)) {
        problems.push_back("deleting " + file.source + " when it is done would also delete " +
                           other.output);
      }
    }
  }
  return plan;
}

}  // namespace wavforge::cli

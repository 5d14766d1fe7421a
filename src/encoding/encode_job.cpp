#include "encoding/encode_job.h"

#include <algorithm>
#include <cstdio>

#include "encoding/output_path.h"
#include "encoding/read_wav_tags.h"
#include "encoding/source_names.h"
#include "encoding/substitute_args.h"
#include "platform/path_rules.h"
#include "settings/placeholders.h"
#include "settings/product.h"
#include "settings/system_info.h"
#include "settings/text_replace.h"
#include "shell/event_log.h"

namespace wavforge {
namespace {

// The line-end escape of templates and script lines, turned into CR LF at the very end.
constexpr const char* kLineEnd = "\\r\\n";

// The run-time error a missing format or parameter set raises.
constexpr int kSubscriptOutOfRange = 9;

std::string TimeDigits(const platform::LocalTime& time) {
  char text[8];
  std::snprintf(text, sizeof text, "%02d%02d%02d", time.hour, time.minute, time.second);
  return text;
}

bool IsWav(const std::string& path) {
  return path.size() >= 4 && ToLowerAscii(path.substr(path.size() - 4)) == ".wav";
}

bool HasFormatParameters(int format) {
  return format >= kMp3 && format <= kWma48;
}

}  // namespace

JobOutcome EncodingJob::Fail(JobOutcome outcome, int number, const std::string& description) {
  outcome.started = false;
  outcome.error_number = number;
  outcome.error_description = description;
  ui_.MessageBox(
      language_.Get().FormatMsg("908", {settings_.TempPath, std::to_string(number), description}),
      platform::kCriticalIcon, kProductName);
  return outcome;
}

JobOutcome EncodingJob::EncodeJob(FileList& file_list) {
  loader_.LoadSettings(settings_);
  JobOutcome outcome;
  const std::string separator(1, platform::kPathSeparator);
  const auto& items = file_list.Items();

  // A format or parameter set that does not exist stops the job before anything is logged.
  const int format = settings_.Encoder;
  if (std::any_of(items.begin(), items.end(), IsWav)) {
    const bool known_format = format >= 0 && format < kFormatCount;
    if (!known_format || (HasFormatParameters(format) &&
                          (settings_.Profiles[format].quality < 0 ||
                           static_cast<std::size_t>(settings_.Profiles[format].quality) >=
                               settings_.Profiles[format].parameters.size()))) {
      return Fail(std::move(outcome), kSubscriptOutOfRange, "Subscript out of range");
    }
  }

  std::string script = std::string("title Larkspur Encoder") + kLineEnd;
  for (const auto& source : items) {
    if (!IsWav(source)) continue;
    const TrackTags tags = ReadTagsWithNameFallback(ports_.binary_files, source);
    const std::string base_path = BasePath(source);
    const std::string output_path = OutputPath(settings_, tags, ports_.files);
    const std::string tools_log = settings_.LogFilePath + separator + "encode.log";
    const auto& profile = settings_.Profiles[format];
    std::string line = SubstituteArgs(
        profile.command,
        {base_path, output_path, tags.Artist, tags.Title, "%1", tags.Genre, tools_log, tags.Album});
    if (HasFormatParameters(format)) {
      line = SubstituteArgs(line, {profile.parameters[static_cast<std::size_t>(profile.quality)]});
    }
    WriteLog(settings_, ports_.files, ports_.clock, {kFormatCodes[format], FileTitle(source)});
    if (settings_.Normalize) {
      script += SubstituteArgs(
          settings_.NormalizeCommand,
          {base_path, tools_log, TimeDigits(ports_.clock.Now()), SourceFolder(source)});
    }
    script += line;
    if (settings_.DelTemp) script += "del \"" + base_path + ".*\"" + kLineEnd;
    outcome.files.push_back({source, output_path, ReplaceAllIgnoreCase(line, kLineEnd, "\r\n")});
  }

  outcome.script_path = ExpandPlaceholders("%Temp%", ports_) + separator + kProductName +
                        TimeDigits(ports_.clock.Now()) + ".bat";
  script += "del \"" + outcome.script_path + "\"";
  outcome.script = ReplaceAllIgnoreCase(script, kLineEnd, "\r\n");

  if (const auto error = ports_.files.WriteFile(outcome.script_path, outcome.script)) {
    return Fail(std::move(outcome), error.value(), error.message());
  }
  WriteLog(settings_, ports_.files, ports_.clock, {"EXEC", outcome.script_path});
  if (IsWindowsNT(ports_.environment)) {
    ports_.processes.StartScript(outcome.script_path, 0);
  } else {
    ports_.processes.ShellExecute("command", "/C=" + outcome.script_path,
                                  ports_.environment.ProgramFolder(), 0);
  }
  outcome.started = true;
  file_list.Clear();
  return outcome;
}

}  // namespace wavforge

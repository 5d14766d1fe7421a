#pragma once

#include <string>
#include <vector>

#include "platform/ports.h"
#include "platform/user_interface.h"
#include "settings/load_settings.h"
#include "settings/settings.h"
#include "shell/file_list.h"
#include "ui/language_object.h"

namespace wavforge {

// One source file as the job put it into the script.
struct JobFile {
  std::string source;
  std::string output_path;  // without extension
  std::string command;      // the filled encoder template, line ends included
};

// What a job did: whether its script was written and started, and what it holds.
struct JobOutcome {
  bool started = false;
  std::string script_path;
  std::string script;
  std::vector<JobFile> files;
  int error_number = 0;  // when not started
  std::string error_description;
};

// The codes the log shows for each format, by format index.
inline constexpr const char* kFormatCodes[kFormatCount] = {"WAV44", "MP3 ",  "OGG ",
                                                           "WMA44", "WMA48", "WAV48"};

// Turns the selected files into one batch script in the temporary folder and starts it
// hidden. The job runs on its own; the window timer learns when it ends.
class EncodingJob {
 public:
  EncodingJob(const platform::Ports& ports, platform::UserInterface& ui, SettingsLoader& loader,
              Settings& settings, LanguageObject& language)
      : ports_(ports), ui_(ui), loader_(loader), settings_(settings), language_(language) {}

  // Writes and starts the script and empties the file list; on failure shows message 908 and
  // keeps the selection.
  JobOutcome EncodeJob(FileList& file_list);

 private:
  JobOutcome Fail(JobOutcome outcome, int number, const std::string& description);

  const platform::Ports& ports_;
  platform::UserInterface& ui_;
  SettingsLoader& loader_;
  Settings& settings_;
  LanguageObject& language_;
};

}  // namespace wavforge

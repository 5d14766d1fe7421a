#pragma once

#include <optional>
#include <string>
#include <vector>

#include "encoding/encode_job.h"
#include "platform/ports.h"

namespace wavforge::cli {

// One recording of a job and what its command will make of it.
struct PlannedFile {
  std::string source;
  std::string output;             // with extension; "" when the command does not name it
  bool through_tool = false;      // run by wavforge-encode, which reports in the tools' log
  std::optional<double> seconds;  // how long the source plays, when that can be read
};

struct JobPlan {
  std::vector<PlannedFile> files;
  std::vector<std::string> problems;  // one sentence each; empty when the job is safe to run
  std::size_t encoders_at_a_time = 1;
};

// The plan of a job from its dry run, and everything in it that could cost a recording or an
// existing file: two sources with one output, an output that exists or is a source, a source
// that is missing, not a regular file or has a name that cannot stand in a script line, and
// (with del_temp) a del line that would remove another source or output of the job.
JobPlan PlanJob(const JobOutcome& dry_run, bool del_temp, const platform::Ports& ports);

}  // namespace wavforge::cli

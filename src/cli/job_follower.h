#pragma once

#include <ostream>
#include <string>

#include "cli/job_plan.h"
#include "encoding/encode_job.h"
#include "platform/ports.h"

namespace wavforge::cli {

// Follows a started job with the main window's timer test (ticking every 50 ms), telling how
// many files are done, which ones are being encoded, the time taken and the time left: on one
// line rewritten in place for a terminal terminal_width characters wide, else (width 0) one
// line each time a file is done. Files run through wavforge-encode are
// judged by its lines in the tools' log (read from log_offset on); others by their expected
// output. An output counts only when it is complete. Returns 0 when every file was encoded,
// 1 when any failed, 2 when the job never showed up.
int FollowJob(const platform::Ports& ports, const JobOutcome& job, const JobPlan& plan,
              const std::string& tools_log, std::uint64_t log_offset, std::size_t terminal_width,
              std::ostream& out, std::ostream& err);

}  // namespace wavforge::cli

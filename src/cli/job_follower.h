#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "encoding/encode_job.h"
#include "platform/ports.h"

namespace wavforge::cli {

// The file a job's command will write for one source: the output path followed by the
// extension the command line gives it; "" when the command does not name it.
std::string ExpectedOutput(const JobFile& file);

// Which file a running job is on: the last one whose output has appeared (0 before any).
std::size_t CurrentFile(const std::vector<JobFile>& files, const platform::FileSystem& disk);

// Follows a started job with the main window's timer test (ticking every 50 ms), telling
// which file is being encoded; when the job has ended, checks that every expected output
// exists and is not empty. Returns 0 when all are there, 1 when any is missing, 2 when the
// job never showed up.
int FollowJob(const platform::Ports& ports, const JobOutcome& job, std::ostream& out,
              std::ostream& err);

}  // namespace wavforge::cli

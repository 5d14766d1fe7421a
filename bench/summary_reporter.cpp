#include "bench/summary_reporter.h"

namespace wavforge::bench {

void SummaryReporter::ReportRuns(const std::vector<Run>& runs) {
  ConsoleReporter::ReportRuns(runs);
  for (const auto& run : runs) {
    if (run.error_occurred) continue;
    const bool median = run.run_type == Run::RT_Aggregate && run.aggregate_name == "median";
    if (run.run_type == Run::RT_Aggregate && !median) continue;
    Time& time = times_[run.run_name.function_name];
    if (time.median && !median) continue;
    time = {run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit), median};
  }
}

std::optional<double> SummaryReporter::Seconds(const std::string& name) const {
  const auto found = times_.find(name);
  if (found == times_.end()) return std::nullopt;
  return found->second.seconds;
}

}  // namespace wavforge::bench

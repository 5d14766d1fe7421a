#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace wavforge::bench {

// Prints as the console reporter does and keeps the real time of every benchmark, so the
// run can end with the comparisons and targets in plain words.
class SummaryReporter final : public benchmark::ConsoleReporter {
 public:
  explicit SummaryReporter(OutputOptions options) : ConsoleReporter(options) {}
  void ReportRuns(const std::vector<Run>& runs) override;

  // Seconds per iteration of a benchmark: the median when it was repeated, else its last
  // run; nothing when it did not run or failed.
  std::optional<double> Seconds(const std::string& name) const;

 private:
  struct Time {
    double seconds = 0;
    bool median = false;
  };
  std::map<std::string, Time> times_;
};

}  // namespace wavforge::bench

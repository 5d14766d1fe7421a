// wavforge_bench: how long a large job takes to write its script, and one tick of the job
// watch. Runs with a private home and temporary folder of its own.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <string_view>

#include "bench/encode_job_bench.h"
#include "bench/isolated_bench_home.h"
#include "bench/job_watch_bench.h"
#include "bench/summary_reporter.h"

namespace {

using namespace wavforge::bench;

constexpr double kJobTargetSeconds = 0.5;
constexpr double kTickTargetSeconds = 0.0005;

// Takes "--NAME=NUMBER" out of argv when present; false when the number is not valid.
bool TakeNumberFlag(int& argc, char** argv, std::string_view name, std::uint64_t& value) {
  const std::string prefix = "--" + std::string(name) + "=";
  for (int i = 1; i < argc; ++i) {
    const std::string_view arg = argv[i];
    if (arg.rfind(prefix, 0) != 0) continue;
    const std::string_view number = arg.substr(prefix.size());
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error != std::errc() || end != number.data() + number.size() || value == 0) return false;
    std::memmove(argv + i, argv + i + 1, sizeof(char*) * static_cast<std::size_t>(argc - i));
    --argc;
    return true;
  }
  return true;
}

const char* Verdict(double seconds, double target) {
  return seconds <= target ? "met" : "MISSED";
}

void PrintSummary(const SummaryReporter& reporter, const EncodeJobBenchOptions& options) {
  std::printf("\nSummary\n");
  const auto job = reporter.Seconds(kEncodeJobBenchmark);
  const auto plain = reporter.Seconds(kReadHeadAndTailBenchmark);
  const auto tick = reporter.Seconds(kJobWatchTickBenchmark);
  if (job) {
    std::printf(
        "  EncodeJob over %zu recordings (%.0f MB of declared audio each): %.3f s per job;"
        " target at most %.1f s: %s\n",
        options.recordings, static_cast<double>(options.data_bytes) / 1e6, *job, kJobTargetSeconds,
        Verdict(*job, kJobTargetSeconds));
  }
  if (plain) {
    std::printf("  Opening each and reading its first and last 4 KiB: %.4f s\n", *plain);
  }
  if (job && plain && *plain > 0) {
    std::printf("  Ratio job / plain reading: %.1f\n", *job / *plain);
  }
  if (tick) {
    std::printf("  JobWatch tick: %.3f ms; target at most %.1f ms: %s\n", *tick * 1e3,
                kTickTargetSeconds * 1e3, Verdict(*tick, kTickTargetSeconds));
  }
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  EncodeJobBenchOptions options;
  options.program_folder = WAVFORGE_PROGRAM_FOLDER;
  std::uint64_t recordings = options.recordings;
  if (!TakeNumberFlag(argc, argv, "recordings", recordings) ||
      !TakeNumberFlag(argc, argv, "data_bytes", options.data_bytes)) {
    std::cerr << "wavforge_bench: --recordings and --data_bytes take a positive number\n";
    return 2;
  }
  options.recordings = recordings;
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;

  const IsolatedBenchHome home;
  std::printf("Private home and temporary folder for this run: %s\n", home.Root().c_str());
  RegisterEncodeJobBenchmarks(home, options);
  RegisterJobWatchBenchmark(home);
  // Colours only for a terminal, so a saved log stays readable.
  SummaryReporter reporter(isatty(STDOUT_FILENO) ? benchmark::ConsoleReporter::OO_ColorTabular
                                                 : benchmark::ConsoleReporter::OO_Tabular);
  benchmark::RunSpecifiedBenchmarks(&reporter);
  PrintSummary(reporter, options);
  benchmark::Shutdown();
  return 0;
}

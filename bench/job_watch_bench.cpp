#include "bench/job_watch_bench.h"

#include <benchmark/benchmark.h>
#include <dirent.h>

#include <cctype>

#include "encoding/job_watch.h"
#include "platform/posix/console_title_search.h"
#include "shell/file_list.h"

namespace wavforge::bench {
namespace {

class NoView final : public JobStatusView {
 public:
  void SetStartEnabled(bool) override {}
  void ShowStatusPicture(int) override {}
};

// Every process on the machine, whoever runs it: what the search has to step over.
int ProcessCount() {
  int count = 0;
  DIR* proc = opendir("/proc");
  if (!proc) return 0;
  while (const dirent* entry = readdir(proc)) {
    if (std::isdigit(static_cast<unsigned char>(entry->d_name[0]))) ++count;
  }
  closedir(proc);
  return count;
}

void JobWatchTickBenchmark(benchmark::State& state) {
  platform::posix::ConsoleTitleSearch windows;
  JobWatch watch(windows);
  NoView view;
  const FileList selection({"/music/a.wav"});
  for (auto _ : state) {
    benchmark::DoNotOptimize(watch.Tick(selection, view));
  }
  state.counters["processes"] = ProcessCount();
}

}  // namespace

void RegisterJobWatchBenchmark() {
  benchmark::RegisterBenchmark(kJobWatchTickBenchmark, JobWatchTickBenchmark)
      ->Unit(benchmark::kMicrosecond)
      ->UseRealTime();
}

}  // namespace wavforge::bench

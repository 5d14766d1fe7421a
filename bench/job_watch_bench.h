#pragma once

#include "bench/isolated_bench_home.h"

namespace wavforge::bench {

inline constexpr const char* kJobWatchTickBenchmark = "JobWatchTick";
// Processes of the user while the tick is measured: the benchmark starts the missing ones.
inline constexpr int kUserProcesses = 500;

// Registers "JobWatchTick": one tick of the job watch as the desktop program makes it four
// times a second, over the job scripts' console titles and the windows of the X display
// ($DISPLAY, e.g. under xvfb-run -a), in a busy session: processes of the user up to
// kUserProcesses, most named like a tool, two stand-in interpreters with titles of no job, and
// a few top-level windows. Without a display only console titles are measured.
void RegisterJobWatchBenchmark(const IsolatedBenchHome& home);

}  // namespace wavforge::bench

#pragma once

namespace wavforge::bench {

inline constexpr const char* kJobWatchTickBenchmark = "JobWatchTick";

// Registers "JobWatchTick": one tick of the job watch with the real process search over this
// machine's running programs, as the window's timer does four times a second.
void RegisterJobWatchBenchmark();

}  // namespace wavforge::bench

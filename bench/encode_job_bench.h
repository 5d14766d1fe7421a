#pragma once

#include <cstdint>
#include <string>

#include "bench/isolated_bench_home.h"

namespace wavforge::bench {

struct EncodeJobBenchOptions {
  std::string program_folder;  // where the fix file lies
  std::size_t recordings = 10000;
  std::uint64_t data_bytes = 100ull * 1000 * 1000;
};

// Names of the two benchmarks, for whoever compares their times.
inline constexpr const char* kEncodeJobBenchmark = "EncodeJob";
inline constexpr const char* kReadHeadAndTailBenchmark = "ReadHeadAndTail";

// Registers "EncodeJob", one whole job over the recordings with the real POSIX ports except
// that the script is not started, and "ReadHeadAndTail", the least any job must do: open each
// recording and read its first and last 4 KiB. The recordings and the settings file are made
// in the isolated home on first use, outside the timed loops.
void RegisterEncodeJobBenchmarks(const IsolatedBenchHome& home,
                                 const EncodeJobBenchOptions& options);

}  // namespace wavforge::bench

#include "bench/isolated_bench_home.h"

#include <filesystem>

#include "support/process_isolation.h"

namespace wavforge::bench {

IsolatedBenchHome::IsolatedBenchHome()
    : root_(testing_support::IsolateProcess("wavforge-bench-").string()) {}

IsolatedBenchHome::~IsolatedBenchHome() {
  std::error_code ignored;
  std::filesystem::remove_all(root_, ignored);
}

}  // namespace wavforge::bench

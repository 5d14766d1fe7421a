#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace wavforge::qt {

// Measures the start when WAVFORGE_STARTUP_PROBE is set: "1" counts from the process start the
// kernel recorded (to 10 ms), a number of nanoseconds since the epoch (`date +%s%N` in the
// launching shell) counts from that moment. Report() prints the time until the window was
// shown and the resident memory to stderr.
class StartupProbe {
 public:
  static std::optional<StartupProbe> FromEnvironment();
  void Report() const;

 private:
  explicit StartupProbe(std::int64_t launched_ns) : launched_ns_(launched_ns) {}
  std::int64_t launched_ns_;  // 0: use the process start time
};

}  // namespace wavforge::qt

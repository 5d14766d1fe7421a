#include "qt/startup_probe.h"

#include <cstdio>
#include <cstdlib>

#include "platform/posix/process_stats.h"

namespace wavforge::qt {

std::optional<StartupProbe> StartupProbe::FromEnvironment() {
  const char* value = std::getenv("WAVFORGE_STARTUP_PROBE");
  if (!value || !*value || std::string(value) == "0") return std::nullopt;
  const long long launched = std::strtoll(value, nullptr, 10);
  return StartupProbe(launched > 1'000'000'000'000'000LL ? launched : 0);
}

void StartupProbe::Report() const {
  double milliseconds = -1;
  if (launched_ns_ > 0) {
    milliseconds =
        static_cast<double>(platform::posix::WallClockNanoseconds() - launched_ns_) / 1e6;
  } else if (const auto seconds = platform::posix::SecondsSinceProcessStart()) {
    milliseconds = *seconds * 1000;
  }
  const double megabytes =
      static_cast<double>(platform::posix::ResidentBytes().value_or(0)) / (1024.0 * 1024.0);
  std::fprintf(stderr, "wavforge: window shown after %.0f ms, resident memory %.1f MiB\n",
               milliseconds, megabytes);
  std::fflush(stderr);
}

}  // namespace wavforge::qt

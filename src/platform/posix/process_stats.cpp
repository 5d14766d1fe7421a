#include "platform/posix/process_stats.h"

#include <time.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <string>

namespace platform::posix {

std::optional<double> SecondsSinceProcessStart() {
  std::ifstream stat("/proc/self/stat");
  std::string text;
  if (!std::getline(stat, text)) return std::nullopt;
  // The program name in parentheses may hold blanks; the fields count from after it.
  const auto close = text.rfind(')');
  if (close == std::string::npos) return std::nullopt;
  std::istringstream fields(text.substr(close + 2));
  std::string field;
  // Field 22 of the whole line is the start time; after the name, state is field 3.
  for (int number = 3; number < 22; ++number) {
    if (!(fields >> field)) return std::nullopt;
  }
  unsigned long long start_ticks = 0;
  if (!(fields >> start_ticks)) return std::nullopt;
  const long ticks_per_second = sysconf(_SC_CLK_TCK);
  timespec now{};
  if (ticks_per_second <= 0 || clock_gettime(CLOCK_BOOTTIME, &now) != 0) return std::nullopt;
  const double since_boot =
      static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
  return since_boot - static_cast<double>(start_ticks) / static_cast<double>(ticks_per_second);
}

std::optional<std::uint64_t> ResidentBytes() {
  std::ifstream statm("/proc/self/statm");
  std::uint64_t size_pages = 0, resident_pages = 0;
  if (!(statm >> size_pages >> resident_pages)) return std::nullopt;
  const long page = sysconf(_SC_PAGESIZE);
  if (page <= 0) return std::nullopt;
  return resident_pages * static_cast<std::uint64_t>(page);
}

std::int64_t WallClockNanoseconds() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  return static_cast<std::int64_t>(now.tv_sec) * 1000000000 + now.tv_nsec;
}

}  // namespace platform::posix

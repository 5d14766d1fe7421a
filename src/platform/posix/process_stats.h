#pragma once

#include <cstdint>
#include <optional>

namespace platform::posix {

// How long ago, in seconds, the kernel started this process (to its clock-tick resolution).
std::optional<double> SecondsSinceProcessStart();

// The memory of this process that is resident now, in bytes.
std::optional<std::uint64_t> ResidentBytes();

// Nanoseconds since the epoch, from the wall clock, as `date +%s%N` prints them.
std::int64_t WallClockNanoseconds();

}  // namespace platform::posix

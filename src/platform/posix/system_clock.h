#pragma once

#include "platform/clock.h"

namespace platform::posix {

// The machine's local time.
class SystemClock final : public Clock {
 public:
  LocalTime Now() const override;
};

}  // namespace platform::posix

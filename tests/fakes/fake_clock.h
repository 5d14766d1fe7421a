#pragma once

#include <vector>

#include "platform/clock.h"

namespace fakes {

// A clock that shows a set time, or a sequence of times, one per reading.
class FakeClock final : public platform::Clock {
 public:
  explicit FakeClock(platform::LocalTime time = {2026, 11, 23, 9, 5, 7}) : times_{time} {}
  explicit FakeClock(std::vector<platform::LocalTime> times) : times_(std::move(times)) {}

  platform::LocalTime Now() const override {
    const auto& time = times_[next_ < times_.size() ? next_ : times_.size() - 1];
    ++next_;
    return time;
  }
  void Set(platform::LocalTime time) {
    times_ = {time};
    next_ = 0;
  }

 private:
  std::vector<platform::LocalTime> times_;
  mutable std::size_t next_ = 0;
};

}  // namespace fakes

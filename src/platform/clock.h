#pragma once

namespace platform {

struct LocalTime {
  int year = 0;    // four digits
  int month = 0;   // 1..12
  int day = 0;     // 1..31
  int hour = 0;    // 0..23
  int minute = 0;  // 0..59
  int second = 0;  // 0..59
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual LocalTime Now() const = 0;
};

}  // namespace platform

#pragma once

#include <chrono>

#include "platform/civil_time.h"

namespace tallyfold {

// A moment in milliseconds since 1970-01-01 00:00:00 UTC.
using Instant = std::chrono::sys_time<std::chrono::milliseconds>;

// The time of day and the rules of the user's time zone.
class Clock {
 public:
  virtual ~Clock() = default;

  [[nodiscard]] virtual Instant Now() const = 0;
  // What the user's wall clock shows at `instant` (whole seconds, rounded down).
  [[nodiscard]] virtual CivilTime LocalTime(Instant instant) const = 0;
  // The moment the wall clock shows `time`. A time skipped by a zone change is taken as the first
  // moment after the gap, one that occurs twice as the earlier.
  [[nodiscard]] virtual Instant InstantOf(const CivilTime& time) const = 0;

  [[nodiscard]] CivilTime LocalNow() const { return LocalTime(Now()); }
};

}  // namespace tallyfold

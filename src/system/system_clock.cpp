#include "system/system_clock.h"

#include <time.h>

#include "platform/zone_rules.h"

namespace tallyfold {
namespace {

std::chrono::seconds OffsetAt(std::chrono::sys_seconds moment) {
  const time_t seconds = moment.time_since_epoch().count();
  struct tm fields = {};
  if (::localtime_r(&seconds, &fields) == nullptr) return std::chrono::seconds{0};
  return std::chrono::seconds{fields.tm_gmtoff};
}

}  // namespace

SystemClock::SystemClock() {
  // localtime_r need not look at the zone by itself.
  ::tzset();
}

Instant SystemClock::Now() const {
  return std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
}

CivilTime SystemClock::LocalTime(Instant instant) const {
  return WallTimeOf(instant, OffsetAt);
}

Instant SystemClock::InstantOf(const CivilTime& time) const {
  return InstantOfWallTime(time, OffsetAt);
}

}  // namespace tallyfold

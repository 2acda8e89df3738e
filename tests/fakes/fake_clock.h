#pragma once

#include "platform/clock.h"
#include "platform/zone_rules.h"

namespace tallyfold {

// A clock that stands where a test puts it, in the zone the test wants; at first 1970-01-01 00:00
// in universal time.
class FakeClock final : public Clock {
 public:
  explicit FakeClock(ZoneOffset zone = NoOffset) : zone_(std::move(zone)) {}

  [[nodiscard]] Instant Now() const override { return now_; }
  [[nodiscard]] CivilTime LocalTime(Instant instant) const override {
    return WallTimeOf(instant, zone_);
  }
  [[nodiscard]] Instant InstantOf(const CivilTime& time) const override {
    return InstantOfWallTime(time, zone_);
  }

  void SetZone(ZoneOffset zone) { zone_ = std::move(zone); }
  void SetNow(Instant now) { now_ = now; }
  // Puts the wall clock to `time`.
  void SetLocal(const CivilTime& time) { now_ = InstantOf(time); }
  void Advance(std::chrono::milliseconds duration) { now_ += duration; }

 private:
  ZoneOffset zone_;
  Instant now_{};
};

// A zone that is always so many minutes ahead of universal time.
[[nodiscard]] ZoneOffset FixedZone(std::chrono::minutes ahead);
// Three hours behind universal time, two in summer. The clocks go forward at midnight of 4 November
// 2018, which therefore begins at 01:00, and back at midnight of 17 February 2019, so that the hour
// from 23:00 on the 16th occurs twice.
[[nodiscard]] ZoneOffset ZoneWithoutAMidnight();

}  // namespace tallyfold

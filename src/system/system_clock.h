#pragma once

#include "platform/clock.h"

namespace tallyfold {

// The computer's clock, with the rules of the time zone that the process was started in.
class SystemClock final : public Clock {
 public:
  SystemClock();

  [[nodiscard]] Instant Now() const override;
  [[nodiscard]] CivilTime LocalTime(Instant instant) const override;
  [[nodiscard]] Instant InstantOf(const CivilTime& time) const override;
};

}  // namespace tallyfold

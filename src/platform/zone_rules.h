#pragma once

#include <chrono>
#include <functional>

#include "platform/civil_time.h"
#include "platform/clock.h"

namespace tallyfold {

// The conversions a Clock makes, for any zone of which is known how far its wall clocks are ahead
// of universal time at a given moment (negative: behind).
using ZoneOffset = std::function<std::chrono::seconds(std::chrono::sys_seconds)>;

// Years outside -32767 to 32767 saturate, here and below.
[[nodiscard]] CivilTime WallTimeOf(Instant instant, const ZoneOffset& offset);

// As Clock::InstantOf says. Fields of `time` out of range roll as a calendar does. The zone changes
// at most once within a day of `time`.
[[nodiscard]] Instant InstantOfWallTime(const CivilTime& time, const ZoneOffset& offset);

// The offset of a zone that is universal time.
[[nodiscard]] std::chrono::seconds NoOffset(std::chrono::sys_seconds moment);

}  // namespace tallyfold

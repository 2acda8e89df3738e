#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tallyfold {
class LDGRAccountSchedule;
}

namespace tallyfold::console {

// How often a schedule recurs, as LDGRAccountSchedule stores it.
struct Interval {
  std::int32_t type = 0;
  std::int32_t every = 1;

  friend bool operator==(const Interval&, const Interval&) = default;
};

// When it ends, likewise.
struct Until {
  std::int32_t type = 1;
  std::int32_t value = 0;

  friend bool operator==(const Until&, const Until&) = default;
};

// What ReadInterval takes, for help.
inline constexpr std::string_view kIntervals =
    "once, daily, weekly, fortnightly, monthly, yearly, month-end, quarterly, quarter-end, or such "
    "as \"10 days\" (weeks, months, years, quarters)";

// Throw CommandError for anything else.
[[nodiscard]] Interval ReadInterval(std::string_view text);
// "forever", a date, or such as "12 times".
[[nodiscard]] Until ReadUntil(std::string_view text);

// What the readers give back as the schedule's own; "?" for numbers that mean nothing.
[[nodiscard]] std::string IntervalText(const LDGRAccountSchedule& schedule);
[[nodiscard]] std::string UntilText(const LDGRAccountSchedule& schedule);

}  // namespace tallyfold::console

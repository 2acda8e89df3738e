#pragma once

#include <cstdint>
#include <optional>

#include "platform/civil_time.h"

namespace tallyfold {

// A calendar day as year x 10000 + month x 100 + day: 7 March 2004 is 20040307. Integer order is
// date order, so days are compared as integers; arithmetic on the integer itself gives numbers
// that still order correctly but need not name a day (20040300 lies before 20040301).
using DateNumber = std::int32_t;

// The day that stands for a missing date.
inline constexpr DateNumber kNullDate = 19700101;

// Midnight of that day. A month or day out of range rolls as a calendar does: 20040230 is 1 March.
[[nodiscard]] CivilTime DateNumberToNSCalendarDate(DateNumber number) noexcept;

// kNullDate for none. The fields of `date` must be in range; years that do not fit saturate.
[[nodiscard]] DateNumber NSCalendarDateToDateNumber(const std::optional<CivilTime>& date) noexcept;

// The same two under the names of a calendar date's own operations.
[[nodiscard]] inline CivilTime dateWithDateNumber(DateNumber number) noexcept {
  return DateNumberToNSCalendarDate(number);
}
[[nodiscard]] inline DateNumber dateNumber(const CivilTime& date) noexcept {
  return NSCalendarDateToDateNumber(date);
}

// Days since 1970-01-01 (see model/calendar.h) of a day number, which rolls where it names no
// day, and back.
[[nodiscard]] std::int64_t DayCountOf(DateNumber number) noexcept;
[[nodiscard]] DateNumber DateNumberOfDayCount(std::int64_t days) noexcept;

// The day the user's wall clock shows now.
[[nodiscard]] DateNumber TodaysDateNumber();

}  // namespace tallyfold

#pragma once

#include <cstdint>

#include "platform/civil_time.h"

namespace tallyfold {

// Calendar arithmetic on wall-clock times, Gregorian throughout (also before 1582), in proleptic
// astronomical years. Everything rolls as a calendar does: 30 February is 1 or 2 March. Defined
// for every input; results outside the years -5,000,000 to 5,000,000 saturate.

// Days since 1970-01-01 (negative before). Month and day may be out of range and roll.
[[nodiscard]] std::int64_t DayCount(int year, int month, int day) noexcept;
// Midnight of the day `days` after 1970-01-01.
[[nodiscard]] CivilTime TimeFromDayCount(std::int64_t days) noexcept;

// `time` with every field in range.
[[nodiscard]] CivilTime Normalized(const CivilTime& time) noexcept;

[[nodiscard]] CivilTime AddSeconds(const CivilTime& time, std::int64_t seconds) noexcept;
[[nodiscard]] CivilTime AddDays(const CivilTime& time, std::int64_t days) noexcept;
// A day that the month does not have rolls into the next one: 31 January + 1 month is 2 or 3 March.
[[nodiscard]] CivilTime AddMonths(const CivilTime& time, std::int64_t months) noexcept;
[[nodiscard]] CivilTime AddYears(const CivilTime& time, std::int64_t years) noexcept;

// 0 Sunday to 6 Saturday.
[[nodiscard]] int DayOfWeek(const CivilTime& time) noexcept;
// The same of a day counted from 1970-01-01; `days` must stay off the very ends of 64 bits.
[[nodiscard]] int DayOfWeekOfDayCount(std::int64_t days) noexcept;
// 1 to 366.
[[nodiscard]] int DayOfYear(const CivilTime& time) noexcept;
[[nodiscard]] bool IsLeapYear(int year) noexcept;
// 28 to 31; `month` is 1 to 12.
[[nodiscard]] int DaysInMonth(int year, int month) noexcept;
// True when the fields name a day that exists.
[[nodiscard]] bool IsValidDay(int year, int month, int day) noexcept;

}  // namespace tallyfold

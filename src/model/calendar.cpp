#include "model/calendar.h"

#include <algorithm>

namespace tallyfold {
namespace {

// The calendar repeats every 400 years. Years are counted from 1 March, so that a leap day is the
// last day of its year.
constexpr std::int64_t kDaysIn400Years = 146'097;
constexpr std::int64_t kDaysTo1970 = 719'468;  // from 1 March of year 0
constexpr std::int64_t kSecondsADay = 86'400;

constexpr std::int64_t FloorDivide(std::int64_t a, std::int64_t b) noexcept {
  return a / b - (a % b < 0 ? 1 : 0);
}

// `month` may be out of range; `year` and `month` together must stay far from 64 bits.
constexpr std::int64_t DaysOfMonthStart(std::int64_t year, std::int64_t month) noexcept {
  const std::int64_t months = year * 12 + (month - 1) - 2;  // since March of year 0
  const std::int64_t march_year = FloorDivide(months, 12);
  const std::int64_t march_month = months - march_year * 12;  // 0 March to 11 February
  const std::int64_t cycle = FloorDivide(march_year, 400);
  const std::int64_t year_of_cycle = march_year - cycle * 400;
  const std::int64_t days_before_month = (153 * march_month + 2) / 5;
  return cycle * kDaysIn400Years + year_of_cycle * 365 + year_of_cycle / 4 - year_of_cycle / 100 +
         days_before_month - kDaysTo1970;
}

constexpr std::int64_t kFirstDay = DaysOfMonthStart(-5'000'000, 1);
constexpr std::int64_t kLastDay = DaysOfMonthStart(5'000'001, 1) - 1;

// More than separates the first day from the last.
constexpr std::int64_t kTooManyDays = kLastDay - kFirstDay + 1;

bool IsNormal(const CivilTime& time) noexcept {
  return IsValidDay(time.year, time.month, time.day) && time.hour >= 0 && time.hour < 24 &&
         time.minute >= 0 && time.minute < 60 && time.second >= 0 && time.second < 60 &&
         time.year >= -5'000'000 && time.year <= 5'000'000;
}

CivilTime WithTimeOfDay(CivilTime date, const CivilTime& time) noexcept {
  date.hour = time.hour;
  date.minute = time.minute;
  date.second = time.second;
  return date;
}

}  // namespace

std::int64_t DayCount(int year, int month, int day) noexcept {
  return DaysOfMonthStart(year, month) + day - 1;
}

CivilTime TimeFromDayCount(std::int64_t days) noexcept {
  const std::int64_t since_march_0 = std::clamp(days, kFirstDay, kLastDay) + kDaysTo1970;
  const std::int64_t cycle = FloorDivide(since_march_0, kDaysIn400Years);
  const auto day_of_cycle = static_cast<std::int32_t>(since_march_0 - cycle * kDaysIn400Years);
  const std::int32_t year_of_cycle =
      (day_of_cycle - day_of_cycle / 1'460 + day_of_cycle / 36'524 - day_of_cycle / 146'096) / 365;
  const std::int32_t day_of_year =
      day_of_cycle - (365 * year_of_cycle + year_of_cycle / 4 - year_of_cycle / 100);
  const std::int32_t march_month = (5 * day_of_year + 2) / 153;
  const std::int32_t month = march_month < 10 ? march_month + 3 : march_month - 9;
  CivilTime time;
  time.year = static_cast<int>(cycle * 400) + year_of_cycle + (month <= 2 ? 1 : 0);
  time.month = month;
  time.day = day_of_year - (153 * march_month + 2) / 5 + 1;
  return time;
}

CivilTime Normalized(const CivilTime& time) noexcept {
  if (IsNormal(time)) return time;
  const std::int64_t seconds =
      std::int64_t{time.hour} * 3'600 + std::int64_t{time.minute} * 60 + time.second;
  const std::int64_t carried_days = FloorDivide(seconds, kSecondsADay);
  const auto second_of_day = static_cast<int>(seconds - carried_days * kSecondsADay);
  CivilTime result = TimeFromDayCount(DayCount(time.year, time.month, time.day) + carried_days);
  result.hour = second_of_day / 3'600;
  result.minute = second_of_day / 60 % 60;
  result.second = second_of_day % 60;
  return result;
}

CivilTime AddSeconds(const CivilTime& time, std::int64_t seconds) noexcept {
  const std::int64_t days = FloorDivide(seconds, kSecondsADay);
  const std::int64_t rest = seconds % kSecondsADay;
  CivilTime result = Normalized(time);
  result.second += static_cast<int>(rest < 0 ? rest + kSecondsADay : rest);
  return AddDays(result, days);
}

CivilTime AddDays(const CivilTime& time, std::int64_t days) noexcept {
  const CivilTime start = Normalized(time);
  const std::int64_t count =
      DayCount(start.year, start.month, start.day) + std::clamp(days, -kTooManyDays, kTooManyDays);
  return WithTimeOfDay(TimeFromDayCount(count), start);
}

CivilTime AddMonths(const CivilTime& time, std::int64_t months) noexcept {
  constexpr std::int64_t kTooManyMonths = 10'000'002 * std::int64_t{12};
  const CivilTime start = Normalized(time);
  const std::int64_t month = start.month + std::clamp(months, -kTooManyMonths, kTooManyMonths);
  return WithTimeOfDay(TimeFromDayCount(DaysOfMonthStart(start.year, month) + start.day - 1),
                       start);
}

CivilTime AddYears(const CivilTime& time, std::int64_t years) noexcept {
  constexpr std::int64_t kTooManyYears = 10'000'002;
  return AddMonths(time, std::clamp(years, -kTooManyYears, kTooManyYears) * 12);
}

int DayOfWeek(const CivilTime& time) noexcept {
  const CivilTime day = Normalized(time);
  return DayOfWeekOfDayCount(DayCount(day.year, day.month, day.day));
}

int DayOfWeekOfDayCount(std::int64_t days) noexcept {
  const std::int64_t since_sunday = days + 4;  // the first day counted was a Thursday
  return static_cast<int>(since_sunday - FloorDivide(since_sunday, 7) * 7);
}

int DayOfYear(const CivilTime& time) noexcept {
  const CivilTime day = Normalized(time);
  return static_cast<int>(DayCount(day.year, day.month, day.day) - DayCount(day.year, 1, 1)) + 1;
}

bool IsLeapYear(int year) noexcept {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int DaysInMonth(int year, int month) noexcept {
  if (month == 2) return IsLeapYear(year) ? 29 : 28;
  return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

bool IsValidDay(int year, int month, int day) noexcept {
  return month >= 1 && month <= 12 && day >= 1 && day <= DaysInMonth(year, month);
}

}  // namespace tallyfold

#include "summaries/summary_periods.h"

#include <algorithm>

#include "model/calendar.h"

namespace tallyfold {
namespace {

// `count` months of a year from `month` on.
DaySpan MonthsFrom(int year, int month, int count) noexcept {
  return {DayCount(year, month, 1), DayCount(year, month + count, 1) - 1};
}

std::int64_t ShortestPeriod(SummaryPeriodStyle style, std::int64_t whole) noexcept {
  switch (style) {
    case SummaryPeriodStyle::Days:
      return 1;
    case SummaryPeriodStyle::Weeks:
      return 7;
    case SummaryPeriodStyle::Months:
      return 28;
    case SummaryPeriodStyle::Quarters:
      return 90;
    case SummaryPeriodStyle::Years:
      return 365;
    default:
      return whole;
  }
}

}  // namespace

SummaryPeriods::SummaryPeriods(SummaryPeriodStyle style, DateNumber start, DateNumber end) noexcept
    : style_(style), range_{DayCountOf(start), DayCountOf(end)} {
  if (end < start) {
    range_.last = range_.first - 1;
  } else {
    range_.last = std::max(range_.first, range_.last);
  }
}

DaySpan SummaryPeriods::PeriodOf(std::int64_t day) const noexcept {
  const CivilTime date = TimeFromDayCount(day);
  DaySpan period = range_;
  switch (style_) {
    case SummaryPeriodStyle::Days:
      period = {day, day};
      break;
    case SummaryPeriodStyle::Weeks:
      period.first = day - DayOfWeekOfDayCount(day);
      period.last = period.first + 6;
      break;
    case SummaryPeriodStyle::Months:
      period = MonthsFrom(date.year, date.month, 1);
      break;
    case SummaryPeriodStyle::Quarters:
      period = MonthsFrom(date.year, (date.month - 1) / 3 * 3 + 1, 3);
      break;
    case SummaryPeriodStyle::Years:
      period = MonthsFrom(date.year, 1, 12);
      break;
    default:
      break;
  }
  return {std::max(period.first, range_.first), std::min(period.last, range_.last)};
}

std::int64_t SummaryPeriods::MostPeriods() const noexcept {
  if (AreNone()) return 0;
  const std::int64_t days = range_.last - range_.first + 1;
  return days / ShortestPeriod(style_, days) + 2;
}

}  // namespace tallyfold

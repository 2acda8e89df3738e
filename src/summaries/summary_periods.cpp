#include "summaries/summary_periods.h"

#include <algorithm>
#include <limits>

#include "model/calendar.h"

namespace tallyfold {
namespace {

// `count` months of a year from `month` on.
DaySpan MonthsFrom(int year, int month, int count) noexcept {
  return {DayCount(year, month, 1), DayCount(year, month + count, 1) - 1};
}

// In days, of a style that cuts the range.
std::int64_t ShortestPeriod(SummaryPeriodStyle style) noexcept {
  switch (style) {
    case SummaryPeriodStyle::Days:
      return 1;
    case SummaryPeriodStyle::Weeks:
      return 7;
    case SummaryPeriodStyle::Months:
      return 28;
    case SummaryPeriodStyle::Quarters:
      return 90;
    default:
      return 365;
  }
}

}  // namespace

SummaryPeriods::SummaryPeriods(SummaryPeriodStyle style, DateNumber start, DateNumber end) noexcept
    : style_(style), start_(start), end_(end), range_{DayCountOf(start), DayCountOf(end)} {
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
  if (IsCut(style_)) {
    const std::int64_t year_1 = DayCount(1, 1, 1);
    if (day < year_1) {
      period = {range_.first, year_1 - 1};
    } else {
      period.first = std::max(period.first, year_1);
    }
  }
  return {std::max(period.first, range_.first), std::min(period.last, range_.last)};
}

DateNumber SummaryPeriods::NumberOf(std::int64_t day) const noexcept {
  if (TimeFromDayCount(day).year >= 0) return DateNumberOfDayCount(day);
  return day == range_.first ? start_ : end_;
}

DateNumber SummaryPeriods::LastNumberOf(const DaySpan& period) const noexcept {
  // Every number has a place: that of 30 February too, and whatever comes after the last day.
  if (period.last == range_.last) return std::numeric_limits<DateNumber>::max();
  return period.last < DayCount(1, 1, 1) ? kFirstOfYear1 - 1 : DateNumberOfDayCount(period.last);
}

std::int64_t SummaryPeriods::MostPeriods() const noexcept {
  if (AreNone()) return 0;
  if (!IsCut(style_)) return 1;
  const std::int64_t first = std::max(range_.first, DayCount(1, 1, 1));
  return std::max<std::int64_t>(range_.last - first + 1, 0) / ShortestPeriod(style_) + 3;
}

}  // namespace tallyfold

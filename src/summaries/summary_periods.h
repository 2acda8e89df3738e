#pragma once

#include <cstdint>

#include "model/date_number.h"

namespace tallyfold {

// How a range is cut. A number without a name leaves it in one piece.
enum class SummaryPeriodStyle : std::int32_t {
  Days = 0,
  Weeks = 1,  // Sunday to Saturday
  Months = 2,
  Quarters = 3,  // from January, April, July and October
  Years = 4,
  Whole = 5,
};

// Days counted from 1970-01-01 (see model/calendar.h), both included.
struct DaySpan {
  std::int64_t first = 0;
  std::int64_t last = 0;

  friend bool operator==(const DaySpan&, const DaySpan&) = default;
};

// The calendar's periods of a range of days, the first and the last cut where the range begins and
// ends. What lies before the year 1, where only damaged or unread days do, is one period. Nothing
// is stored of them, so that a range may be of any length.
class SummaryPeriods {
 public:
  // Day numbers that name no day roll as a calendar does. Numbers that are in order but do not roll
  // to days in order (31 February to 1 March) are a range of one day.
  SummaryPeriods(SummaryPeriodStyle style, DateNumber start, DateNumber end) noexcept;

  // Whether a range of several periods can come of the style.
  [[nodiscard]] static constexpr bool IsCut(SummaryPeriodStyle style) noexcept {
    return style >= SummaryPeriodStyle::Days && style <= SummaryPeriodStyle::Years;
  }
  // Whether the range has no days, because it ends before it starts.
  [[nodiscard]] bool AreNone() const noexcept { return range_.last < range_.first; }
  [[nodiscard]] const DaySpan& Range() const noexcept { return range_; }
  // The period that `day`, one of the range, lies in.
  [[nodiscard]] DaySpan PeriodOf(std::int64_t day) const noexcept;
  // The number of a day that begins or ends a period. Where no number names the day, it is the one
  // that the range was given by.
  [[nodiscard]] DateNumber NumberOf(std::int64_t day) const noexcept;
  // The greatest number that still counts in the period, be it that of a day or not.
  [[nodiscard]] DateNumber LastNumberOf(const DaySpan& period) const noexcept;
  // An upper bound of how many there are, at most a tenth and three too high.
  [[nodiscard]] std::int64_t MostPeriods() const noexcept;

  // Periods that begin earlier lie before the year 1.
  static constexpr DateNumber kFirstOfYear1 = 1'01'01;

 private:
  SummaryPeriodStyle style_;
  DateNumber start_;
  DateNumber end_;
  DaySpan range_;
};

}  // namespace tallyfold

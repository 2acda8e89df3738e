#pragma once

#include <cstdint>

#include "filters/filter.h"
#include "model/date_number.h"
#include "platform/civil_time.h"

namespace tallyfold {

// From the first second to the last, both included, as a wall clock shows them.
struct DateRange {
  CivilTime start;
  CivilTime end;

  friend bool operator==(const DateRange&, const DateRange&) = default;
};

// Stretches of days relative to now. The numbers are stored with account summaries.
enum class DateMnemonic : std::int32_t {
  Today = 0,
  Yesterday,
  LastWeek,
  LastMonth,
  LastQuarter,
  LastYear,
  ThisWeek,
  ThisMonth,
  ThisQuarter,
  ThisYear,
  WeekToDate,
  MonthToDate,
  QuarterToDate,
  YearToDate,
};

// Sets `range` to the stretch of days and returns its end. Weeks begin on Sunday, quarters in
// January, April, July and October. Going back a month or a quarter rolls as a calendar does: a
// month before 31 March is a day in March. A number without a name leaves `range` alone and
// returns `now`.
CivilTime DateRangeForMnemonic(DateMnemonic mnemonic, const CivilTime& now, DateRange& range);

// Midnight at the beginning of the day, week, month, quarter or year that `time` lies in.
[[nodiscard]] CivilTime StartOfDay(const CivilTime& time);
[[nodiscard]] CivilTime StartOfWeek(const CivilTime& time);
[[nodiscard]] CivilTime StartOfMonth(const CivilTime& time);
[[nodiscard]] CivilTime StartOfQuarter(const CivilTime& time);
[[nodiscard]] CivilTime StartOfYear(const CivilTime& time);

// Adds the two rules that keep the entries from `first` to `last`, both included.
void AddDateRangeRules(LDGRFilter& filter, DateNumber first, DateNumber last);
void AddDateRangeRules(LDGRFilter& filter, const DateRange& range);

}  // namespace tallyfold

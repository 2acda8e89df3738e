#include "model/date_number.h"

#include <algorithm>
#include <limits>

#include "model/calendar.h"
#include "platform/ambient.h"

namespace tallyfold {

CivilTime DateNumberToNSCalendarDate(DateNumber number) noexcept {
  CivilTime date;
  date.year = number / 10'000;
  date.month = number % 10'000 / 100;
  date.day = number % 100;
  return Normalized(date);
}

DateNumber NSCalendarDateToDateNumber(const std::optional<CivilTime>& date) noexcept {
  if (!date) return kNullDate;
  const std::int64_t number =
      std::int64_t{date->year} * 10'000 + std::int64_t{date->month} * 100 + date->day;
  return static_cast<DateNumber>(std::clamp<std::int64_t>(
      number, std::numeric_limits<DateNumber>::min(), std::numeric_limits<DateNumber>::max()));
}

std::int64_t DayCountOf(DateNumber number) noexcept {
  const CivilTime date = DateNumberToNSCalendarDate(number);
  return DayCount(date.year, date.month, date.day);
}

DateNumber DateNumberOfDayCount(std::int64_t days) noexcept {
  return NSCalendarDateToDateNumber(TimeFromDayCount(days));
}

DateNumber TodaysDateNumber() {
  return NSCalendarDateToDateNumber(CurrentClock().LocalNow());
}

}  // namespace tallyfold

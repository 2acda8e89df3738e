#include "filters/date_ranges.h"

#include <limits>

#include "model/calendar.h"

namespace tallyfold {
namespace {

constexpr int kMonthsInQuarter = 3;

CivilTime SecondBefore(const CivilTime& time) {
  return AddSeconds(time, -1);
}

DateRange WholeDay(const CivilTime& start) {
  return {start, SecondBefore(AddDays(start, 1))};
}

DateRange WholeMonths(const CivilTime& start, int months) {
  return {start, SecondBefore(AddMonths(start, months))};
}

DateRange WholeWeek(const CivilTime& start) {
  return {start, SecondBefore(AddDays(start, 7))};
}

DateRange WholeYear(const CivilTime& start) {
  return {start, SecondBefore(AddYears(start, 1))};
}

}  // namespace

CivilTime StartOfDay(const CivilTime& time) {
  return {time.year, time.month, time.day};
}

CivilTime StartOfWeek(const CivilTime& time) {
  return AddDays(StartOfDay(time), -DayOfWeek(time));
}

CivilTime StartOfMonth(const CivilTime& time) {
  return {time.year, time.month, 1};
}

CivilTime StartOfQuarter(const CivilTime& time) {
  return {time.year, (time.month - 1) / kMonthsInQuarter * kMonthsInQuarter + 1, 1};
}

CivilTime StartOfYear(const CivilTime& time) {
  return {time.year, 1, 1};
}

CivilTime DateRangeForMnemonic(DateMnemonic mnemonic, const CivilTime& now, DateRange& range) {
  const CivilTime today = StartOfDay(now);
  const CivilTime end_of_today = WholeDay(today).end;
  switch (mnemonic) {
    case DateMnemonic::Today:
      range = WholeDay(today);
      break;
    case DateMnemonic::Yesterday:
      range = WholeDay(AddDays(today, -1));
      break;
    case DateMnemonic::LastWeek:
      range = WholeWeek(AddDays(StartOfWeek(now), -7));
      break;
    case DateMnemonic::LastMonth:
      range = WholeMonths(StartOfMonth(AddMonths(now, -1)), 1);
      break;
    case DateMnemonic::LastQuarter:
      range = WholeMonths(StartOfQuarter(AddMonths(now, -kMonthsInQuarter)), kMonthsInQuarter);
      break;
    case DateMnemonic::LastYear:
      range = WholeYear(AddYears(StartOfYear(now), -1));
      break;
    case DateMnemonic::ThisWeek:
      range = WholeWeek(StartOfWeek(now));
      break;
    case DateMnemonic::ThisMonth:
      range = WholeMonths(StartOfMonth(now), 1);
      break;
    case DateMnemonic::ThisQuarter:
      range = WholeMonths(StartOfQuarter(now), kMonthsInQuarter);
      break;
    case DateMnemonic::ThisYear:
      range = WholeYear(StartOfYear(now));
      break;
    case DateMnemonic::WeekToDate:
      range = {StartOfWeek(now), end_of_today};
      break;
    case DateMnemonic::MonthToDate:
      range = {StartOfMonth(now), end_of_today};
      break;
    case DateMnemonic::QuarterToDate:
      range = {StartOfQuarter(now), end_of_today};
      break;
    case DateMnemonic::YearToDate:
      range = {StartOfYear(now), end_of_today};
      break;
    default:
      return now;
  }
  return range.end;
}

void AddDateRangeRules(LDGRFilter& filter, DateNumber first, DateNumber last) {
  using Limits = std::numeric_limits<DateNumber>;
  const DateNumber before_first = first == Limits::min() ? first : first - 1;
  const DateNumber after_last = last == Limits::max() ? last : last + 1;
  filter.AddRuleForCategory(filter_category::kDate, FilterLogic::KeepMatching,
                            FilterQualifier::After, before_first);
  filter.AddRuleForCategory(filter_category::kDate, FilterLogic::KeepMatching,
                            FilterQualifier::Before, after_last);
}

void AddDateRangeRules(LDGRFilter& filter, const DateRange& range) {
  AddDateRangeRules(filter, NSCalendarDateToDateNumber(range.start),
                    NSCalendarDateToDateNumber(range.end));
}

}  // namespace tallyfold

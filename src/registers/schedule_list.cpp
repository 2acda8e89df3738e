#include "registers/schedule_list.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "model/date_format.h"
#include "model/text.h"
#include "platform/ambient.h"
#include "registers/register_look.h"

namespace tallyfold {
namespace {

using Repeat = RepeatInterval;

// English keys.
struct IntervalText {
  Repeat type;
  std::string_view text;  // "%@" stands for the number of an every-N interval
  std::string_view every_one = {};
};

constexpr std::array kIntervalTexts = {
    IntervalText{Repeat::Once, "Once"},
    IntervalText{Repeat::Daily, "Every day"},
    IntervalText{Repeat::Weekly, "Every week"},
    IntervalText{Repeat::TwoWeeks, "Every two weeks"},
    IntervalText{Repeat::Monthly, "Every month"},
    IntervalText{Repeat::Yearly, "Every year"},
    IntervalText{Repeat::EndOfMonth, "Last day of every month"},
    IntervalText{Repeat::ThreeMonths, "Every three months"},
    IntervalText{Repeat::EndOfQuarter, "End of every quarter"},
    IntervalText{Repeat::EveryNDays, "Every %@ days", "Every day"},
    IntervalText{Repeat::EveryNWeeks, "Every %@ weeks", "Every week"},
    IntervalText{Repeat::EveryNMonths, "Every %@ months", "Every month"},
    IntervalText{Repeat::EveryNYears, "Every %@ years", "Every year"},
    IntervalText{Repeat::EveryNQuarters, "Every %@ quarters", "Every quarter"},
};

}  // namespace

std::size_t OverdueCount(const LDGRAccountSchedule& schedule, DateNumber today) {
  std::vector<DateNumber> due = schedule.DueDates(DateNumberToNSCalendarDate(today));
  // A rule may name a day twice.
  due.erase(std::unique(due.begin(), due.end()), due.end());
  return static_cast<std::size_t>(
      std::count_if(due.begin(), due.end(), [today](DateNumber date) { return date < today; }));
}

std::string NextDateText(const LDGRAccountSchedule& schedule, std::string_view date_format) {
  const DateNumber next = schedule.NextEntryDate();
  return next < 0 ? "-" : FormatDate(DateNumberToNSCalendarDate(next), date_format);
}

std::string RepeatsInWords(const LDGRAccountSchedule& schedule) {
  const auto type = static_cast<Repeat>(schedule.GetRepeatIntervalType());
  const auto* const found = std::ranges::find(kIntervalTexts, type, &IntervalText::type);
  if (found == kIntervalTexts.end()) return LocalizedText("Never");
  if (found->every_one.empty()) return LocalizedText(found->text);
  const std::int32_t every = schedule.GetRepeatInterval();
  // Of such an interval the start is the only occurrence.
  if (every < 1) return LocalizedText("Once");
  if (every == 1) return LocalizedText(found->every_one);
  return MessageWithText(LocalizedText(found->text), std::to_string(every));
}

std::string UntilInWords(const LDGRAccountSchedule& schedule, std::string_view date_format) {
  const std::int32_t until = schedule.GetRepeatUntil();
  switch (static_cast<LDGRAccountSchedule::Until>(schedule.GetRepeatUntilType())) {
    case LDGRAccountSchedule::Until::Forever:
      return LocalizedText("Forever");
    case LDGRAccountSchedule::Until::Count:
      return until == 1 ? LocalizedText("1 time")
                        : MessageWithText(LocalizedText("%@ times"), std::to_string(until));
    case LDGRAccountSchedule::Until::Date:
      return MessageWithText(LocalizedText("Until %@"),
                             FormatDate(DateNumberToNSCalendarDate(until), date_format));
  }
  return LocalizedText("Never");
}

ScheduleRow RowOfSchedule(const LDGRAccount& account, std::shared_ptr<LDGRAccountSchedule> schedule,
                          std::string_view date_format, DateNumber today) {
  ScheduleRow row;
  row.next = schedule->NextEntryDate();
  row.next_date = NextDateText(*schedule, date_format);
  row.repeats = RepeatsInWords(*schedule);
  row.until = UntilInWords(*schedule, date_format);
  row.overdue = OverdueCount(*schedule, today);
  row.type = TypeTextOfEntry(&account, *schedule);
  row.description = schedule->GetDescription();
  row.to_from = schedule->GetToFrom();
  row.amount = schedule->GetAmount();
  row.schedule = std::move(schedule);
  return row;
}

std::vector<ScheduleRow> ScheduleRows(const LDGRAccount& account, std::string_view date_format,
                                      DateNumber today) {
  ScheduleList schedules = account.GetSchedules();
  std::stable_sort(schedules.begin(), schedules.end(), [](const auto& a, const auto& b) {
    return a->NextEntryDateIsGreaterThan(*b) < 0;
  });
  std::vector<ScheduleRow> rows;
  rows.reserve(schedules.size());
  for (auto& schedule : schedules) {
    rows.push_back(RowOfSchedule(account, std::move(schedule), date_format, today));
  }
  return rows;
}

}  // namespace tallyfold

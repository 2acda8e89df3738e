#include "registers/schedule_list.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "model/date_format.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "registers/register_look.h"
#include "registers/register_rows.h"

namespace tallyfold {
namespace {

constexpr std::string_view kNext = "next";
constexpr std::string_view kRepeats = "repeats";
constexpr std::string_view kUntil = "until";
constexpr std::string_view kOverdue = "overdue";
constexpr std::string_view kScheduleType = "type";
constexpr std::string_view kScheduleDescription = "description";
constexpr std::string_view kScheduleToFrom = "toFrom";
constexpr std::string_view kScheduleAmount = "amount";

using Repeat = RepeatInterval;

// English keys.
struct IntervalText {
  Repeat type;
  std::string_view text;  // "{1}" stands for the number of an every-N interval
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
    IntervalText{Repeat::EveryNDays, "Every {1} days", "Every day"},
    IntervalText{Repeat::EveryNWeeks, "Every {1} weeks", "Every week"},
    IntervalText{Repeat::EveryNMonths, "Every {1} months", "Every month"},
    IntervalText{Repeat::EveryNYears, "Every {1} years", "Every year"},
    IntervalText{Repeat::EveryNQuarters, "Every {1} quarters", "Every quarter"},
};

}  // namespace

std::vector<TableColumn> DefaultScheduleColumns() {
  using Content = TableColumn::Content;
  return {{std::string(kNext), 80, "Next", Content::Day},
          {std::string(kRepeats), 140, "Repeats", Content::Text, false},
          {std::string(kUntil), 110, "Until", Content::Text, false},
          {std::string(kOverdue), 60, "Overdue", Content::Count, false},
          {std::string(kScheduleType), 110, "Type"},
          {std::string(kScheduleDescription), 200, "Description"},
          {std::string(kScheduleToFrom), 150, "To/From"},
          {std::string(kScheduleAmount), 90, "Amount", Content::Amount}};
}

std::size_t OverdueCount(const LDGRAccountSchedule& schedule, DateNumber today) {
  std::vector<DateNumber> due = schedule.DueDates(DateNumberToNSCalendarDate(today));
  // A rule may name a day twice.
  due.erase(std::unique(due.begin(), due.end()), due.end());
  return static_cast<std::size_t>(
      std::count_if(due.begin(), due.end(), [today](DateNumber date) { return date < today; }));
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
  return Message(found->text, {std::to_string(every)});
}

std::string UntilInWords(const LDGRAccountSchedule& schedule, std::string_view date_format) {
  const std::int32_t until = schedule.GetRepeatUntil();
  switch (static_cast<LDGRAccountSchedule::Until>(schedule.GetRepeatUntilType())) {
    case LDGRAccountSchedule::Until::Forever:
      return LocalizedText("Forever");
    case LDGRAccountSchedule::Until::Count:
      return Message(until == 1 ? "{1} time" : "{1} times", {std::to_string(until)});
    case LDGRAccountSchedule::Until::Date:
      return Message("Until {1}", {FormatDate(DateNumberToNSCalendarDate(until), date_format)});
  }
  return LocalizedText("Never");
}

TableCell CellOfSchedule(const LDGRAccount* account, const LDGRAccountSchedule& schedule,
                         std::string_view column, const TableFormat& format, DateNumber today) {
  if (column == kNext) {
    const DateNumber next = schedule.NextEntryDate();
    return next < 0 ? TableCell{.text = "-"} : DayCell(next, format);
  }
  if (column == kRepeats) return {.text = RepeatsInWords(schedule)};
  if (column == kUntil) return {.text = UntilInWords(schedule, format.date_format)};
  if (column == kOverdue) {
    TableCell cell = CountCell(static_cast<std::int64_t>(OverdueCount(schedule, today)));
    if (cell.number == 0.0) cell.text.clear();
    return cell;
  }
  if (column == kScheduleType) return {.text = TypeTextOfEntry(account, schedule)};
  if (column == kScheduleDescription || column == kScheduleToFrom || column == kScheduleAmount) {
    return CellOfEntry(schedule, column, format);
  }
  return {};
}

RowLook LookOfSchedule(const LDGRAccountSchedule& schedule, const LDGRPreferences& preferences,
                       DateNumber today) {
  // All that is listed is yet to come.
  RowLook look = LookOfEntry(schedule, preferences, today);
  look.is_italic = false;
  look.is_overdue = OverdueCount(schedule, today) > 0;
  return look;
}

void SortByNextDate(ScheduleList& schedules, bool descending) {
  std::ranges::stable_sort(schedules, [descending](const auto& a, const auto& b) {
    return (descending ? a->NextEntryDateIsGreaterThan_Reversed(*b)
                       : a->NextEntryDateIsGreaterThan(*b)) < 0;
  });
}

}  // namespace tallyfold

#include "registers/schedule_dates.h"

#include <algorithm>
#include <string_view>

#include "model/calendar.h"
#include "model/date_format.h"
#include "platform/ambient.h"
#include "platform/message.h"

namespace tallyfold {
namespace {

std::string Formatted(DateNumber date, std::string_view format) {
  return FormatDate(DateNumberToNSCalendarDate(date), format);
}

ScheduleDateLine LineOf(const OccurrenceAhead& occurrence, int day) {
  if (!occurrence.date) {
    // The candidate has rolled into the month after the one that is skipped.
    const CivilTime candidate = DateNumberToNSCalendarDate(occurrence.candidate);
    return {0, FormatDate(AddDays(candidate, -candidate.day), "%B %Y"),
            Message("no day {1}", {std::to_string(day)})};
  }
  ScheduleDateLine line{*occurrence.date, Formatted(occurrence.candidate, "%a %e %b %Y"), ""};
  if (*occurrence.date != occurrence.candidate) {
    line.note = Message("paid {1}", {Formatted(*occurrence.date, "%a %e %b")});
  }
  return line;
}

}  // namespace

std::vector<ScheduleDateLine> ScheduleDates(const LDGRAccountSchedule& schedule,
                                            std::size_t count) {
  const int day = TimeFromDayCount(DayCountOf(schedule.GetDate())).day;
  std::vector<ScheduleDateLine> lines;
  for (const OccurrenceAhead& occurrence : schedule.NextOccurrences(count)) {
    lines.push_back(LineOf(occurrence, day));
  }
  return lines;
}

DueDay DueDayOf(const ScheduleDateLine& line, DateNumber today) noexcept {
  if (IsSkippedMonth(line) || line.date > today) return DueDay::Later;
  return line.date == today ? DueDay::Today : DueDay::Past;
}

std::string DatesHeading(const LDGRAccountSchedule& schedule) {
  const std::string& description = schedule.GetDescription();
  const std::string& to_from = schedule.GetToFrom();
  if (description.empty() || to_from.empty()) return description + to_from;
  return Message("{1}, {2}", {description, to_from});
}

std::string SkippedMonthsNote(const std::vector<ScheduleDateLine>& lines, DateNumber start) {
  if (std::ranges::none_of(lines, &IsSkippedMonth)) return "";
  return Message("Months without a day {1} are left out.", {std::to_string(start % 100)});
}

std::string DatesNote(const LDGRAccountSchedule& schedule,
                      const std::vector<ScheduleDateLine>& lines) {
  const auto dates = static_cast<std::size_t>(
      std::ranges::count_if(lines, [](const auto& line) { return !IsSkippedMonth(line); }));
  std::string note = dates == 0 ? LocalizedText("No date is left.")
                     : dates == kScheduleDatesShown
                         ? LocalizedText("The next twelve dates.")
                         : Message(Plural("The last date.", "The last {1} dates.", dates),
                                   {std::to_string(dates)});
  const bool are_moved = std::ranges::any_of(
      lines, [](const auto& line) { return !IsSkippedMonth(line) && !line.note.empty(); });
  const std::string sentences[] = {
      are_moved ? LocalizedText("Each is moved to the Friday before when it falls on a weekend.")
                : "",
      SkippedMonthsNote(lines, schedule.GetDate())};
  for (const std::string& sentence : sentences) {
    if (!sentence.empty()) note += ' ' + sentence;
  }
  return note;
}

}  // namespace tallyfold

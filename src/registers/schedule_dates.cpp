#include "registers/schedule_dates.h"

#include <string_view>

#include "model/calendar.h"
#include "model/date_format.h"
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

}  // namespace tallyfold

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "model/account_schedule.h"
#include "model/date_number.h"

namespace tallyfold {

// A line of the dates that a schedule comes to next, in the user's language.
struct ScheduleDateLine {
  // The day on which it falls due; 0 where a month is skipped.
  DateNumber date = 0;
  // The day that the rule names, "Sat 1 May 2004", or the month that is skipped, "February 2005".
  std::string text;
  // "paid Fri 30 Apr" where the weekend has moved it, "no day 31" of a month; else "".
  std::string note;

  friend bool operator==(const ScheduleDateLine&, const ScheduleDateLine&) = default;
};

[[nodiscard]] inline bool IsSkippedMonth(const ScheduleDateLine& line) noexcept {
  return line.date == 0;
}

enum class DueDay : std::uint8_t { Past, Today, Later };
// Later for a month that is skipped.
[[nodiscard]] DueDay DueDayOf(const ScheduleDateLine& line, DateNumber today) noexcept;

// How many dates the schedule sheet shows.
inline constexpr std::size_t kScheduleDatesShown = 12;

// The next `count` uncommitted occurrences, due or not, and between them the months that are
// skipped because they lack the start's day.
[[nodiscard]] std::vector<ScheduleDateLine> ScheduleDates(const LDGRAccountSchedule& schedule,
                                                          std::size_t count = kScheduleDatesShown);

// What the dates are those of: "Pay, Harbour Books".
[[nodiscard]] std::string DatesHeading(const LDGRAccountSchedule& schedule);
// In sentences: how many lines there are, where days are moved and which months are left out.
[[nodiscard]] std::string DatesNote(const LDGRAccountSchedule& schedule,
                                    const std::vector<ScheduleDateLine>& lines);
// The last of these alone, for a rule that names a day of the month; "" where no month is.
[[nodiscard]] std::string SkippedMonthsNote(const std::vector<ScheduleDateLine>& lines,
                                            DateNumber start);

}  // namespace tallyfold

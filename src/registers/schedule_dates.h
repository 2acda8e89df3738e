#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "model/account_schedule.h"
#include "model/date_number.h"

namespace tallyfold {

// A line of the dates that a schedule comes to next, in the user's language.
struct ScheduleDateLine {
  // 0 where a month is skipped.
  DateNumber date = 0;
  std::string text;  // "Fri 30 Apr 2004", "February 2005"
  // "Sat 1 May -> Fri 30 Apr" where the weekend has moved it, "Skipped: no day 31"; else "".
  std::string note;

  friend bool operator==(const ScheduleDateLine&, const ScheduleDateLine&) = default;
};

// How many dates the schedule sheet shows.
inline constexpr std::size_t kScheduleDatesShown = 12;

// The next `count` uncommitted occurrences, due or not, and between them the months that are
// skipped because they lack the start's day.
[[nodiscard]] std::vector<ScheduleDateLine> ScheduleDates(const LDGRAccountSchedule& schedule,
                                                          std::size_t count = kScheduleDatesShown);

}  // namespace tallyfold

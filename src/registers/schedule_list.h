#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "model/account.h"
#include "model/account_schedule.h"
#include "model/date_number.h"

namespace tallyfold {

// A scheduled entry as a list shows it. Texts are in the user's language.
struct ScheduleRow {
  std::shared_ptr<LDGRAccountSchedule> schedule;
  // The next uncommitted occurrence and its text; -1 and "-" for none. What recurs only once has
  // none either, due or not.
  DateNumber next = -1;
  std::string next_date;
  std::string repeats;  // "Every two weeks"
  std::string until;    // "Forever", "12 times", "Until 12/31/04"
  // See OverdueCount().
  std::size_t overdue = 0;
  std::string type;
  std::string description;
  std::string to_from;
  double amount = 0.0;
};

// Dates are written in `date_format` (see model/date_format.h).
[[nodiscard]] ScheduleRow RowOfSchedule(const LDGRAccount& account,
                                        std::shared_ptr<LDGRAccountSchedule> schedule,
                                        std::string_view date_format, DateNumber today);
// Every schedule of the account, the next one first (see
// LDGRAccountSchedule::NextEntryDateIsGreaterThan()).
[[nodiscard]] std::vector<ScheduleRow> ScheduleRows(const LDGRAccount& account,
                                                    std::string_view date_format, DateNumber today);

// Occurrences of days before `today` that are neither committed nor skipped.
[[nodiscard]] std::size_t OverdueCount(const LDGRAccountSchedule& schedule, DateNumber today);
// The next date, "-" for none.
[[nodiscard]] std::string NextDateText(const LDGRAccountSchedule& schedule,
                                       std::string_view date_format);
// The recurrence in words. Numbers that mean nothing give "Never".
[[nodiscard]] std::string RepeatsInWords(const LDGRAccountSchedule& schedule);
[[nodiscard]] std::string UntilInWords(const LDGRAccountSchedule& schedule,
                                       std::string_view date_format);

}  // namespace tallyfold

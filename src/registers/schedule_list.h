#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "model/account.h"
#include "model/account_schedule.h"
#include "model/date_number.h"
#include "registers/table_data_source.h"
#include "storage/preferences.h"

namespace tallyfold {

// The columns of the schedule list as it is first shown: "next", "repeats", "until", "overdue",
// "type", "description", "toFrom", "amount". Those of the recurrence do not sort.
[[nodiscard]] std::vector<TableColumn> DefaultScheduleColumns();

// What a scheduled entry shows in a column; nothing for an unknown one. The next date is "-"
// without a number where there is none: what recurs only once has none either, due or not.
// `account` may be null.
[[nodiscard]] TableCell CellOfSchedule(const LDGRAccount* account,
                                       const LDGRAccountSchedule& schedule, std::string_view column,
                                       const TableFormat& format, DateNumber today);
[[nodiscard]] RowLook LookOfSchedule(const LDGRAccountSchedule& schedule,
                                     const LDGRPreferences& preferences, DateNumber today);

// The next one first (see LDGRAccountSchedule::NextEntryDateIsGreaterThan()), or last.
void SortByNextDate(ScheduleList& schedules, bool descending);

// Occurrences of days before `today` that are neither committed nor skipped.
[[nodiscard]] std::size_t OverdueCount(const LDGRAccountSchedule& schedule, DateNumber today);
// The recurrence in words. Numbers that mean nothing give "Never".
[[nodiscard]] std::string RepeatsInWords(const LDGRAccountSchedule& schedule);
[[nodiscard]] std::string UntilInWords(const LDGRAccountSchedule& schedule,
                                       std::string_view date_format);

}  // namespace tallyfold

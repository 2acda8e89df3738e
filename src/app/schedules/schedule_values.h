#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/entries/entry_defaults.h"
#include "app/entries/entry_sheet_state.h"
#include "app/face/problem.h"
#include "model/account_schedule.h"
#include "model/date_number.h"

namespace tallyfold {

// A scheduled entry as the user describes it. A date, an amount or a number is none where its field
// cannot be read as one.
struct ScheduleValues {
  EntryKind kind = EntryKind::Debit;
  // The first day on which it may fall due.
  std::optional<DateNumber> start = kNullDate;
  // Positive whatever the kind. The lines of a split stand for it where there are any.
  std::optional<double> amount = 0.0;
  SplitRows split;
  std::string description;
  // Payee or source; transfers take the name of their other account.
  std::string to_from;
  // Number of an entry type of the account, -1 for none. Transfers have none.
  std::int32_t type = -1;
  // Debits only; each occurrence gets its check number when it is committed.
  bool is_check = false;
  bool tax_deductible = false;
  std::string notes;
  // Transfers only: the other account, and whether money goes to it.
  std::int32_t transfer_account = -1;
  bool is_transfer_origin = true;
  // As LDGRAccountSchedule stores them.
  std::int32_t repeat_interval_type = 0;
  std::optional<std::int32_t> repeat_interval = 1;
  std::int32_t repeat_until_type = 1;
  std::optional<std::int32_t> repeat_until = 0;
  bool use_preceding_friday = false;

  friend bool operator==(const ScheduleValues&, const ScheduleValues&) = default;
};

// Whether its money leaves the account: a debit, or a transfer from here. The sheets show the
// amount of such a schedule without its minus.
[[nodiscard]] bool GoesOut(const LDGRAccountEntry& entry);

// What a schedule of a known kind holds.
[[nodiscard]] ScheduleValues ValuesOf(const LDGRAccountSchedule& schedule);
// What a schedule holds whose first occurrence is an entry of a known kind; how it recurs is that
// of ScheduleValues.
[[nodiscard]] ScheduleValues ValuesOfEntry(const LDGRAccountEntry& entry);
// Makes the schedule one with these values, which ProblemOf() must have passed. A transfer's
// to_from is taken as it stands; a number that does not count and cannot be read leaves what the
// schedule has.
void StoreValues(const ScheduleValues& values, LDGRAccountSchedule& schedule);

// Whether the rule of an interval type moves occurrences off the weekend, and whether it repeats
// every so many of something.
[[nodiscard]] bool MovesOffWeekend(std::int32_t repeat_interval_type) noexcept;
[[nodiscard]] bool RepeatsEverySoMany(std::int32_t repeat_interval_type) noexcept;

// Tells why no schedule can be made of the values; none when one can. The day of `start` is limited
// to its month first. An end in the past and a negative amount are refused unless they are those of
// `former`, which may be null. The fields are scheduleSheet_Start_Field, _Amount_Field,
// _Split_Table, _Interval_PopUp, _Every_Field, _UntilType_PopUp and _Until_Field.
[[nodiscard]] std::optional<Problem> ProblemOf(ScheduleValues& values, const ScheduleValues* former,
                                               DateNumber today);

}  // namespace tallyfold

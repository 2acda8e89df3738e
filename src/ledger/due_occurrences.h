#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "model/account.h"
#include "model/account_entry.h"
#include "model/account_schedule.h"
#include "model/date_number.h"

namespace tallyfold {

class Change;
class TransferLinks;

// An occurrence of a scheduled entry that is due and neither committed nor skipped yet.
struct DueOccurrence {
  std::shared_ptr<LDGRAccountSchedule> schedule;
  // A new entry as the schedule makes it, in no account and without a number of its own.
  std::shared_ptr<LDGRAccountEntry> entry;
  // What is committed instead of it: an edited copy; null for the entry itself.
  std::shared_ptr<LDGRAccountEntry> edited = nullptr;
};

// The day of the next uncommitted occurrence, due or not: the one the schedule list shows, and that
// of an entry which recurs only once. -1 for none.
[[nodiscard]] DateNumber NextDayToCommit(const LDGRAccountSchedule& schedule);
// The occurrence of that day; one without an entry for none.
[[nodiscard]] DueOccurrence NextOccurrence(const std::shared_ptr<LDGRAccountSchedule>& schedule);

// Every occurrence of the account's scheduled entries due by `through`, by day and then in the
// order of the schedules.
[[nodiscard]] std::vector<DueOccurrence> OccurrencesDue(const LDGRAccount& account,
                                                        DateNumber through);

// Whether each is of a schedule that the account still has, and has been neither committed nor
// skipped meanwhile. False for none at all.
[[nodiscard]] bool CanBeCommitted(const LDGRAccount& account,
                                  const std::vector<DueOccurrence>& occurrences);

// The number of a check that was given none, asked for each in turn; 0 where it gets none.
using CheckNumberRule = std::function<std::int32_t(const LDGRAccount& account)>;

// For occurrences of which CanBeCommitted() holds. Adds to the account, in their order, a copy of
// the entry or of the edited one, and marks the occurrence's own day as committed, whatever day the
// copy has. The copy gets a number of the account, a check without a number typed into the edited
// one what the rule says, and a transfer its other half. One that is there twice counts once. Comes
// back with what was added.
[[nodiscard]] EntryList CommitOccurrences(Change& change, const TransferLinks& links,
                                          const std::shared_ptr<LDGRAccount>& account,
                                          const std::vector<DueOccurrence>& occurrences,
                                          const CheckNumberRule& check_number);
// Marks the days as committed and adds nothing, so that they are never offered again.
void SkipOccurrences(Change& change, const std::shared_ptr<LDGRAccount>& account,
                     const std::vector<DueOccurrence>& occurrences);

}  // namespace tallyfold

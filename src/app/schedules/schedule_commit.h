#pragma once

#include <memory>
#include <vector>

#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/refresh.h"
#include "app/schedules/due_occurrence.h"
#include "ledger/ledger.h"
#include "ledger/transfer_links.h"
#include "model/account.h"
#include "model/account_schedule.h"
#include "model/date_number.h"

namespace tallyfold {

class Change;

// The day of the next uncommitted occurrence, due or not: the one the schedule list shows, and that
// of an entry which recurs only once. -1 for none.
[[nodiscard]] DateNumber NextDayToCommit(const LDGRAccountSchedule& schedule);

// Turns due occurrences of the selected account's scheduled entries into entries of its register.
class ScheduleCommit {
 public:
  ScheduleCommit(const Desk& desk, Ledger& ledger, const TransferLinks& links, Refresh& refresh,
                 Announcer& announcer) noexcept
      : desk_(desk), ledger_(ledger), links_(links), refresh_(refresh), announcer_(announcer) {}
  ScheduleCommit(const ScheduleCommit&) = delete;
  ScheduleCommit& operator=(const ScheduleCommit&) = delete;

  // Every occurrence due by `through`, by day and then in the order of the schedules; none without
  // a selected account.
  [[nodiscard]] std::vector<DueOccurrence> Due(DateNumber through) const;

  // Adds the occurrence's entry, or the edited copy of it, to the account and marks the
  // occurrence's own day as committed, whatever day the copy has. The entry gets a number of the
  // account, a check without a number typed into the copy the next check number, and a transfer its
  // other half. False, and nothing changes, when the schedule is no longer one of the selected
  // account, or its occurrence has been committed or skipped meanwhile.
  bool Commit(const DueOccurrence& occurrence) { return CommitAll({occurrence}); }
  // The same for several, in their order; all of them or none. One that is there twice counts once.
  bool CommitAll(const std::vector<DueOccurrence>& occurrences);
  // Never offers the occurrence again. False as for Commit().
  bool Skip(const DueOccurrence& occurrence) { return SkipAll({occurrence}); }
  bool SkipAll(const std::vector<DueOccurrence>& occurrences);

 private:
  // Null when any of the occurrences can no longer be committed.
  [[nodiscard]] std::shared_ptr<LDGRAccount> AccountFor(
      const std::vector<DueOccurrence>& occurrences) const;
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> Add(Change& change,
                                                      const std::shared_ptr<LDGRAccount>& account,
                                                      const DueOccurrence& occurrence) const;
  void LinkTransfer(Change& change, LDGRAccount& account, LDGRAccountEntry& entry) const;

  const Desk& desk_;
  Ledger& ledger_;
  const TransferLinks& links_;
  Refresh& refresh_;
  Announcer& announcer_;
};

}  // namespace tallyfold

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/refresh.h"
#include "ledger/due_occurrences.h"
#include "ledger/ledger.h"
#include "ledger/transfer_links.h"
#include "model/date_number.h"

namespace tallyfold {

// Turns due occurrences of the selected account's scheduled entries into entries of its register,
// each time as one step.
class ScheduleCommit {
 public:
  ScheduleCommit(const Desk& desk, Ledger& ledger, const TransferLinks& links, Refresh& refresh,
                 Announcer& announcer) noexcept
      : desk_(desk), ledger_(ledger), links_(links), refresh_(refresh), announcer_(announcer) {}
  ScheduleCommit(const ScheduleCommit&) = delete;
  ScheduleCommit& operator=(const ScheduleCommit&) = delete;

  // OccurrencesDue() in the selected account; none without one.
  [[nodiscard]] std::vector<DueOccurrence> Due(DateNumber through) const;

  // CommitOccurrences() in the selected account, a check with the number suggested for a new one.
  // False, and nothing changes, when a schedule is no longer one of the selected account, or an
  // occurrence has been committed or skipped meanwhile.
  bool Commit(const DueOccurrence& occurrence) { return CommitAll({occurrence}); }
  bool CommitAll(const std::vector<DueOccurrence>& occurrences);
  // SkipOccurrences(). False as for Commit().
  bool Skip(const DueOccurrence& occurrence) { return SkipAll({occurrence}); }
  // What to ask before several are skipped: how many they are and what they come to.
  [[nodiscard]] std::string QuestionBeforeSkipping(
      const std::vector<DueOccurrence>& occurrences) const;
  bool SkipAll(const std::vector<DueOccurrence>& occurrences);

 private:
  // Null when any of the occurrences can no longer be committed.
  [[nodiscard]] std::shared_ptr<LDGRAccount> AccountFor(
      const std::vector<DueOccurrence>& occurrences) const;

  const Desk& desk_;
  Ledger& ledger_;
  const TransferLinks& links_;
  Refresh& refresh_;
  Announcer& announcer_;
};

}  // namespace tallyfold

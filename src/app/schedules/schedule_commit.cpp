#include "app/schedules/schedule_commit.h"

#include "app/entries/entry_defaults.h"
#include "ledger/change.h"
#include "model/account.h"
#include "model/account_entry.h"
#include "platform/message.h"
#include "registers/register_look.h"

namespace tallyfold {

std::vector<DueOccurrence> ScheduleCommit::Due(DateNumber through) const {
  const auto account = desk_.SelectedAccount();
  return account != nullptr ? OccurrencesDue(*account, through) : std::vector<DueOccurrence>();
}

bool ScheduleCommit::CommitAll(const std::vector<DueOccurrence>& occurrences) {
  const Announcer::Operation operation(announcer_);
  const auto account = AccountFor(occurrences);
  if (account == nullptr) return false;
  Change change(ledger_, "Commit Scheduled Entries", account);
  const EntryList entries =
      CommitOccurrences(change, links_, account, occurrences, [this](const LDGRAccount& of) {
        return SuggestedCheckNumber(of, desk_.preferences()).value_or(0);
      });
  change.Close();
  refresh_.EntriesAdded(entries);
  refresh_.SchedulesChanged();
  return true;
}

std::string ScheduleCommit::QuestionBeforeSkipping(
    const std::vector<DueOccurrence>& occurrences) const {
  double sum = 0.0;
  for (const DueOccurrence& occurrence : occurrences) sum += occurrence.entry->GetAmount();
  return Message(
      Plural("Are you sure you would like to skip {1} scheduled entry for good, {2}?",
             "Are you sure you would like to skip {1} scheduled entries for good, {2} in all?",
             occurrences.size()),
      {std::to_string(occurrences.size()), RegisterAmountText(sum, desk_.preferences())});
}

bool ScheduleCommit::SkipAll(const std::vector<DueOccurrence>& occurrences) {
  const Announcer::Operation operation(announcer_);
  const auto account = AccountFor(occurrences);
  if (account == nullptr) return false;
  Change change(ledger_, "Skip Scheduled Entries", account);
  SkipOccurrences(change, account, occurrences);
  change.Close();
  refresh_.SchedulesChanged();
  return true;
}

std::shared_ptr<LDGRAccount> ScheduleCommit::AccountFor(
    const std::vector<DueOccurrence>& occurrences) const {
  auto account = desk_.SelectedAccount();
  return account != nullptr && CanBeCommitted(*account, occurrences) ? account : nullptr;
}

}  // namespace tallyfold

#include "app/schedules/schedule_commit.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "app/entries/entry_defaults.h"
#include "ledger/change.h"
#include "model/account_entry.h"

namespace tallyfold {
namespace {

bool IsCommitted(const DueOccurrence& occurrence) {
  return occurrence.schedule->DateIsCommitted(occurrence.entry->GetDate());
}

}  // namespace

DateNumber NextDayToCommit(const LDGRAccountSchedule& schedule) {
  const DateNumber next = schedule.NextEntryDate();
  if (next != -1) return next;
  for (const OccurrenceAhead& occurrence : schedule.NextOccurrences(1)) {
    if (occurrence.date) return *occurrence.date;
  }
  return -1;
}

std::vector<DueOccurrence> ScheduleCommit::Due(DateNumber through) const {
  std::vector<DueOccurrence> due;
  const auto account = desk_.SelectedAccount();
  if (account == nullptr) return due;
  const CivilTime day = DateNumberToNSCalendarDate(through);
  for (const auto& schedule : account->GetSchedules()) {
    DateNumber former = kNullDate;
    for (auto& entry : schedule->EvaluateForDate(day)) {
      // A rule may name a day twice.
      if (std::exchange(former, entry->GetDate()) == entry->GetDate()) continue;
      due.push_back({schedule, std::move(entry)});
    }
  }
  std::stable_sort(due.begin(), due.end(), [](const DueOccurrence& a, const DueOccurrence& b) {
    return a.entry->GetDate() < b.entry->GetDate();
  });
  return due;
}

bool ScheduleCommit::CommitAll(const std::vector<DueOccurrence>& occurrences) {
  const Announcer::Operation operation(announcer_);
  const auto account = AccountFor(occurrences);
  if (account == nullptr) return false;
  Change change(ledger_, "Commit Scheduled Entries", account);
  EntryList entries;
  entries.reserve(occurrences.size());
  for (const DueOccurrence& occurrence : occurrences) {
    if (IsCommitted(occurrence)) continue;
    entries.push_back(Add(change, account, occurrence));
  }
  change.Close();
  refresh_.EntriesAdded(entries);
  refresh_.SchedulesChanged();
  return true;
}

std::shared_ptr<LDGRAccountEntry> ScheduleCommit::Add(Change& change,
                                                      const std::shared_ptr<LDGRAccount>& account,
                                                      const DueOccurrence& occurrence) const {
  const auto& edited = occurrence.edited;
  const bool has_typed_check_number =
      edited != nullptr && edited->GetCheckNumber() > 0 &&
      edited->GetCheckNumber() != occurrence.entry->GetCheckNumber();
  // A copy, so that neither the occurrence nor its edited copy gets into an account, or a number
  // from a change that is rolled back.
  auto entry =
      LDGRAccountEntry::entryWithEntry(edited != nullptr ? edited.get() : occurrence.entry.get());
  entry->SetNumber(change.NextNumber(account));
  if (entry->IsCheck() && !has_typed_check_number) {
    entry->SetCheckNumber(SuggestedCheckNumber(*account, desk_.preferences()).value_or(0));
  }
  if (entry->IsTransfer()) LinkTransfer(change, *account, *entry);
  change.Add(account, entry);
  change.Edit(account, occurrence.schedule).CommitEntry(occurrence.entry.get());
  return entry;
}

bool ScheduleCommit::SkipAll(const std::vector<DueOccurrence>& occurrences) {
  const Announcer::Operation operation(announcer_);
  const auto account = AccountFor(occurrences);
  if (account == nullptr) return false;
  Change change(ledger_, "Skip Scheduled Entries", account);
  for (const DueOccurrence& occurrence : occurrences) {
    if (IsCommitted(occurrence)) continue;
    change.Edit(account, occurrence.schedule).AddCommittedDate(occurrence.entry->GetDate());
  }
  change.Close();
  refresh_.SchedulesChanged();
  return true;
}

std::shared_ptr<LDGRAccount> ScheduleCommit::AccountFor(
    const std::vector<DueOccurrence>& occurrences) const {
  auto account = desk_.SelectedAccount();
  if (account == nullptr || occurrences.empty()) return nullptr;
  const auto& list = account->GetSchedules();
  const std::unordered_set<std::shared_ptr<LDGRAccountSchedule>> schedules(list.begin(),
                                                                           list.end());
  const auto can_be_committed = [&schedules](const DueOccurrence& occurrence) {
    return occurrence.entry != nullptr && schedules.contains(occurrence.schedule) &&
           !IsCommitted(occurrence);
  };
  return std::ranges::all_of(occurrences, can_be_committed) ? account : nullptr;
}

void ScheduleCommit::LinkTransfer(Change& change, LDGRAccount& account,
                                  LDGRAccountEntry& entry) const {
  const auto other = desk_.AccountWithNumber(entry.GetTransferAccount());
  // The schedule's own numbers name no entry.
  entry.SetTransferEntry(-1);
  if (other.get() == &account) {
    // Only a file names the account itself: both halves would be booked there.
    entry.SetTransferAccount(-1);
    return;
  }
  links_.LinkNew(change, account, entry, entry.GetTransferAccount(),
                 other != nullptr ? other->GetName() : entry.GetToFrom());
}

}  // namespace tallyfold

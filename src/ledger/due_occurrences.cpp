#include "ledger/due_occurrences.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "ledger/change.h"
#include "ledger/transfer_links.h"

namespace tallyfold {
namespace {

bool IsCommitted(const DueOccurrence& occurrence) {
  return occurrence.schedule->DateIsCommitted(occurrence.entry->GetDate());
}

// A copy, so that neither the occurrence nor its edited copy gets into an account, or a number from
// a change that is rolled back.
std::shared_ptr<LDGRAccountEntry> EntryOf(const DueOccurrence& occurrence) {
  return LDGRAccountEntry::entryWithEntry(occurrence.edited != nullptr ? occurrence.edited.get()
                                                                       : occurrence.entry.get());
}

bool HasTypedCheckNumber(const DueOccurrence& occurrence) {
  const auto& edited = occurrence.edited;
  return edited != nullptr && edited->GetCheckNumber() > 0 &&
         edited->GetCheckNumber() != occurrence.entry->GetCheckNumber();
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

DueOccurrence NextOccurrence(const std::shared_ptr<LDGRAccountSchedule>& schedule) {
  const DateNumber next = NextDayToCommit(*schedule);
  if (next == -1) return {};
  return {schedule, schedule->EntryForDate(next)};
}

std::vector<DueOccurrence> OccurrencesDue(const LDGRAccount& account, DateNumber through) {
  std::vector<DueOccurrence> due;
  const CivilTime day = DateNumberToNSCalendarDate(through);
  for (const auto& schedule : account.GetSchedules()) {
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

bool CanBeCommitted(const LDGRAccount& account, const std::vector<DueOccurrence>& occurrences) {
  const auto& list = account.GetSchedules();
  const std::unordered_set<std::shared_ptr<LDGRAccountSchedule>> schedules(list.begin(),
                                                                           list.end());
  return !occurrences.empty() &&
         std::ranges::all_of(occurrences, [&schedules](const DueOccurrence& occurrence) {
           return occurrence.entry != nullptr && schedules.contains(occurrence.schedule) &&
                  !IsCommitted(occurrence);
         });
}

EntryList CommitOccurrences(Change& change, const TransferLinks& links,
                            const std::shared_ptr<LDGRAccount>& account,
                            const std::vector<DueOccurrence>& occurrences,
                            const CheckNumberRule& check_number) {
  EntryList entries;
  entries.reserve(occurrences.size());
  for (const DueOccurrence& occurrence : occurrences) {
    if (IsCommitted(occurrence)) continue;
    auto entry = EntryOf(occurrence);
    entry->SetNumber(change.NextNumber(account));
    if (entry->IsCheck() && !HasTypedCheckNumber(occurrence)) {
      entry->SetCheckNumber(check_number(*account));
    }
    if (entry->IsTransfer()) links.LinkScheduled(change, *account, *entry);
    change.Add(account, entry);
    change.Edit(account, occurrence.schedule).CommitEntry(occurrence.entry.get());
    entries.push_back(std::move(entry));
  }
  return entries;
}

void SkipOccurrences(Change& change, const std::shared_ptr<LDGRAccount>& account,
                     const std::vector<DueOccurrence>& occurrences) {
  for (const DueOccurrence& occurrence : occurrences) {
    if (IsCommitted(occurrence)) continue;
    change.Edit(account, occurrence.schedule).AddCommittedDate(occurrence.entry->GetDate());
  }
}

}  // namespace tallyfold

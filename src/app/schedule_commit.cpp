#include "app/schedule_commit.h"

#include <algorithm>
#include <utility>

#include "app/entry_defaults.h"
#include "model/account_entry.h"
#include "model/account_schedule.h"

namespace tallyfold {

std::vector<DueOccurrence> ScheduleCommit::Due(DateNumber through) const {
  std::vector<DueOccurrence> due;
  const auto account = host_.SelectedAccount();
  if (account == nullptr) return due;
  const CivilTime day = DateNumberToNSCalendarDate(through);
  for (const auto& schedule : account->GetSchedules()) {
    for (auto& entry : schedule->EvaluateForDate(day)) due.push_back({schedule, std::move(entry)});
  }
  std::stable_sort(due.begin(), due.end(), [](const DueOccurrence& a, const DueOccurrence& b) {
    return a.entry->GetDate() < b.entry->GetDate();
  });
  return due;
}

bool ScheduleCommit::Commit(const DueOccurrence& occurrence,
                            std::shared_ptr<LDGRAccountEntry> edited) {
  const auto account = AccountFor(occurrence);
  if (account == nullptr) return false;
  const bool has_typed_check_number =
      edited != nullptr && edited->GetCheckNumber() > 0 &&
      edited->GetCheckNumber() != occurrence.entry->GetCheckNumber();
  // A copy, so that the occurrence itself never gets into an account.
  const auto entry = edited != nullptr ? std::move(edited)
                                       : LDGRAccountEntry::entryWithEntry(occurrence.entry.get());
  entry->SetNumber(account->NextAvailableNumber());
  if (entry->IsCheck() && !has_typed_check_number) {
    entry->SetCheckNumber(SuggestedCheckNumber(*account, host_.Preferences()));
  }
  if (entry->IsTransfer()) LinkTransfer(*account, *entry);
  account->AddEntry(entry);
  occurrence.schedule->CommitEntry(occurrence.entry.get());
  account->NoteChange();
  refresh_.EntrySaved(entry, true);
  refresh_.SchedulesChanged();
  return true;
}

bool ScheduleCommit::Skip(const DueOccurrence& occurrence) {
  const auto account = AccountFor(occurrence);
  if (account == nullptr) return false;
  occurrence.schedule->AddCommittedDate(occurrence.entry->GetDate());
  account->NoteChange();
  refresh_.SchedulesChanged();
  return true;
}

std::shared_ptr<LDGRAccount> ScheduleCommit::AccountFor(const DueOccurrence& occurrence) const {
  auto account = host_.SelectedAccount();
  if (account == nullptr || occurrence.schedule == nullptr || occurrence.entry == nullptr ||
      occurrence.schedule->DateIsCommitted(occurrence.entry->GetDate())) {
    return nullptr;
  }
  const auto& schedules = account->GetSchedules();
  const bool is_here =
      std::find(schedules.begin(), schedules.end(), occurrence.schedule) != schedules.end();
  return is_here ? account : nullptr;
}

void ScheduleCommit::LinkTransfer(LDGRAccount& account, LDGRAccountEntry& entry) const {
  const auto other = host_.AccountWithNumber(entry.GetTransferAccount());
  // The schedule's own numbers name no entry.
  entry.SetTransferEntry(-1);
  links_.Link(account, entry, true, entry.GetTransferAccount(),
              other != nullptr ? other->GetName() : entry.GetToFrom());
}

}  // namespace tallyfold

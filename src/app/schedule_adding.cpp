#include "app/schedule_adding.h"

#include <algorithm>
#include <cmath>

#include "model/account_schedule.h"
#include "model/entry_split.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

bool HasSplit(const NewSchedule& values) {
  return values.kind != EntryKind::Transfer && values.split != SplitRows();
}

bool HasFiniteAmounts(const NewSchedule& values) {
  return std::isfinite(values.amount) &&
         std::all_of(values.split.begin(), values.split.end(),
                     [](const SplitRow& row) { return std::isfinite(row.amount); });
}

void SetKind(LDGRAccountSchedule& schedule, const NewSchedule& values) {
  switch (values.kind) {
    case EntryKind::Debit:
      schedule.SetIsDebit(true);
      schedule.SetIsCheck(values.is_check);
      schedule.SetAmount(-values.amount);
      break;
    case EntryKind::Deposit:
      schedule.SetIsDeposit(true);
      schedule.SetAmount(values.amount);
      break;
    case EntryKind::Transfer:
      schedule.SetIsTransfer(true);
      schedule.SetIsTransferOrigin(values.is_transfer_origin);
      schedule.SetTransferAccount(values.transfer_account);
      schedule.SetAmount(values.is_transfer_origin ? -values.amount : values.amount);
      break;
  }
}

// As the entry sheets store a split.
void SetSplit(LDGRAccountSchedule& schedule, const SplitRows& rows) {
  auto split = std::make_shared<LDGRAccountEntrySplit>();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    split->SetDescription(rows[i].description, i);
    split->SetToFrom(rows[i].to, i);
    split->SetAmount(rows[i].amount, i);
  }
  schedule.SetAmount(split->GetTotal());
  schedule.SetToFrom(LocalizedText("Split"));
  schedule.SetSplit(std::move(split));
}

void SetRecurrence(LDGRAccountSchedule& schedule, const NewSchedule& values) {
  schedule.SetRepeatIntervalType(values.repeat_interval_type);
  schedule.SetRepeatInterval(values.repeat_interval);
  schedule.SetRepeatUntilType(values.repeat_until_type);
  schedule.SetRepeatUntil(values.repeat_until);
  schedule.SetUsePrecedingFriday(values.use_preceding_friday);
}

}  // namespace

std::shared_ptr<LDGRAccountSchedule> ScheduleAdding::Add(const NewSchedule& values) {
  const auto account = host_.SelectedAccount();
  if (account == nullptr || !HasFiniteAmounts(values)) return nullptr;
  auto schedule = std::make_shared<LDGRAccountSchedule>();
  SetKind(*schedule, values);
  schedule->SetDate(values.start);
  schedule->SetDescription(values.description);
  schedule->SetToFrom(values.to_from);
  schedule->SetTaxDeductible(values.tax_deductible);
  schedule->SetNotes(values.notes);
  if (values.kind == EntryKind::Transfer) {
    const auto other = host_.AccountWithNumber(values.transfer_account);
    if (other == nullptr || other == account) return nullptr;
    schedule->SetToFrom(other->GetName());
  } else {
    schedule->SetType(values.type);
  }
  if (HasSplit(values)) SetSplit(*schedule, values.split);
  SetRecurrence(*schedule, values);
  schedule->SetNumber(account->NextAvailableScheduleNumber());
  account->AddSchedule(schedule);
  refresh_.SchedulesChanged();
  return schedule;
}

}  // namespace tallyfold

#include <vector>

#include "model/account.h"
#include "model/amounts.h"
#include "model/entry_walk.h"
#include "model/register_place.h"
#include "model/running_balances.h"

namespace tallyfold {
namespace {

template <typename Counts>
double Sum(double start, const EntryList& entries, const Counts& counts) {
  WalkEntries(entries, [&](const LDGRAccountEntry& entry) {
    if (counts(entry)) start += entry.GetAmount();
  });
  return start;
}

// Whether an entry at `other` counts in the balance of another one at `place`. Of two checks of
// one day and number each counts in the other's, of two other entries neither.
bool ComesBefore(const RegisterPlace& other, const RegisterPlace& place) noexcept {
  return place.IsCheck() ? other <= place : other < place;
}

}  // namespace

double LDGRAccount::GetBalance() const noexcept {
  if (IsLocked()) return 0.0;
  return Sum(starting_balance_, entries_, [](const auto&) { return true; });
}

double LDGRAccount::GetTodaysBalance() const {
  return GetRunningBalanceThroughDate(TodaysDateNumber());
}

double LDGRAccount::GetResolvedBalance() const noexcept {
  return Sum(starting_balance_, entries_, [](const auto& entry) { return entry.GetCleared(); });
}

double LDGRAccount::GetUnresolvedBalance() const noexcept {
  return GetBalance() - GetResolvedBalance();
}

double LDGRAccount::GetRunningBalanceAtEntry(const LDGRAccountEntry* entry) const noexcept {
  if (entry == nullptr) return 0.0;
  const RegisterPlace place(*entry);
  return Sum(starting_balance_ + entry->GetAmount(), entries_, [&](const auto& other) {
    return &other != entry && ComesBefore(RegisterPlace(other), place);
  });
}

double LDGRAccount::GetRunningBalanceBeforeDate(DateNumber date) const noexcept {
  return Sum(starting_balance_, entries_,
             [date](const auto& entry) { return entry.GetDate() < date; });
}

double LDGRAccount::GetRunningBalanceThroughDate(DateNumber date) const noexcept {
  return Sum(starting_balance_, entries_,
             [date](const auto& entry) { return entry.GetDate() <= date; });
}

std::vector<double> LDGRAccount::RunningBalances(const EntryList& rows) const {
  return RunningBalanceTable(entries_, starting_balance_).Of(rows);
}

double LDGRAccount::GetDebitsTotal() const noexcept {
  return Sum(0.0, entries_, [](const auto& entry) { return entry.IsDebit(); });
}

double LDGRAccount::GetDepositsTotal() const noexcept {
  return Sum(0.0, entries_, [](const auto& entry) { return entry.IsDeposit(); });
}

double LDGRAccount::GetTransfersTotal() const noexcept {
  return Sum(0.0, entries_, [](const auto& entry) { return entry.IsTransfer(); });
}

void LDGRAccount::SetStartingBalance(double balance) noexcept {
  const double rounded = RoundedAmount(balance);
  if (rounded == starting_balance_) return;
  starting_balance_ = rounded;
  NoteChange(ChangeKind::Money | ChangeKind::Options);
}

}  // namespace tallyfold

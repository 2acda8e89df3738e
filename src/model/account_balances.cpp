#include <algorithm>
#include <compare>
#include <cstdint>

#include "model/account.h"
#include "model/amounts.h"

namespace tallyfold {
namespace {

template <typename Counts>
double Sum(double start, const EntryList& entries, const Counts& counts) {
  for (const auto& entry : entries) {
    if (counts(*entry)) start += entry->GetAmount();
  }
  return start;
}

// Where an entry stands in the register: its day, on that day checks before the others, the checks
// by check number and the others by entry number. Entries may share a place.
struct Place {
  std::int64_t day_and_kind;
  std::int32_t number;

  explicit Place(const LDGRAccountEntry& entry) noexcept
      : day_and_kind(std::int64_t{entry.GetDate()} * 2 + (entry.IsCheck() ? 0 : 1)),
        number(entry.IsCheck() ? entry.GetCheckNumber() : entry.GetNumber()) {}

  [[nodiscard]] bool IsCheck() const noexcept { return day_and_kind % 2 == 0; }
  friend auto operator<=>(const Place&, const Place&) = default;
};

// Whether an entry at `other` counts in the balance of another one at `place`. Of two checks of
// one day and number each counts in the other's, of two other entries neither.
bool ComesBefore(const Place& other, const Place& place) noexcept {
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
  const Place place(*entry);
  return Sum(starting_balance_ + entry->GetAmount(), entries_, [&](const auto& other) {
    return &other != entry && ComesBefore(Place(other), place);
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
  struct Line {
    Place place;
    double amount;
  };
  std::vector<Line> lines;
  lines.reserve(entries_.size());
  for (const auto& entry : entries_) lines.push_back({Place(*entry), entry->GetAmount()});
  std::sort(lines.begin(), lines.end(),
            [](const Line& a, const Line& b) { return a.place < b.place; });

  // balances[i] is the balance with the first i lines of the register.
  std::vector<double> balances;
  balances.reserve(lines.size() + 1);
  balances.push_back(starting_balance_);
  for (const Line& line : lines) balances.push_back(balances.back() + line.amount);

  std::vector<double> result;
  result.reserve(rows.size());
  for (const auto& row : rows) {
    const Place place(*row);
    const auto end = std::partition_point(lines.begin(), lines.end(), [&place](const Line& line) {
      return ComesBefore(line.place, place);
    });
    const double balance = balances[static_cast<std::size_t>(end - lines.begin())];
    // A check shares its place with itself and has been counted.
    result.push_back(place.IsCheck() ? balance : balance + row->GetAmount());
  }
  return result;
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
  Change(starting_balance_, RoundedAmount(balance));
}

}  // namespace tallyfold

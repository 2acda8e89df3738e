#include <algorithm>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "model/account.h"
#include "model/amounts.h"
#include "model/packed_sort.h"

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
  [[nodiscard]] PackedKey Packed(std::size_t index) const noexcept {
    return {static_cast<std::uint64_t>(day_and_kind) ^ 0x8000'0000'0000'0000U, InOrder(number),
            static_cast<std::uint32_t>(index)};
  }
  // The same of a packed place, without a look at its entry.
  [[nodiscard]] static bool IsCheckPacked(const PackedKey& place) noexcept {
    return place.high % 2 == 0;
  }
  friend auto operator<=>(const Place&, const Place&) = default;
};

// Whether an entry at `other` counts in the balance of another one at `place`. Of two checks of
// one day and number each counts in the other's, of two other entries neither.
bool ComesBefore(const Place& other, const Place& place) noexcept {
  return place.IsCheck() ? other <= place : other < place;
}

// The running balance at each of the entries.
std::vector<double> BalancesOf(const EntryList& entries, double balance) {
  std::vector<double> amounts;
  std::vector<PackedKey> lines;
  amounts.reserve(entries.size());
  lines.reserve(entries.size());
  for (const auto& entry : entries) {
    lines.push_back(Place(*entry).Packed(lines.size()));
    amounts.push_back(entry->GetAmount());
  }
  SortPacked(lines);

  std::vector<double> balances(entries.size());
  for (auto line = lines.begin(); line != lines.end();) {
    const auto end = std::find_if(line, lines.end(), [line](const PackedKey& other) {
      return other.high != line->high || other.low != line->low;
    });
    // Checks that share their place count in one another's balance, other entries do not.
    const bool shares = Place::IsCheckPacked(*line);
    const double before = balance;
    for (auto i = line; i != end; ++i) balance += amounts[i->index];
    for (; line != end; ++line) {
      balances[line->index] = shares ? balance : before + amounts[line->index];
    }
  }
  return balances;
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
  const std::vector<double> balances = BalancesOf(entries_, starting_balance_);
  std::vector<double> result;
  result.reserve(rows.size());
  // Rows in the order of the entries, filtered or not, are found by walking along.
  std::size_t position = 0;
  for (const auto& row : rows) {
    while (position < entries_.size() && entries_[position] != row) ++position;
    if (position == entries_.size()) break;
    result.push_back(balances[position++]);
  }
  if (result.size() == rows.size()) return result;

  std::unordered_map<const LDGRAccountEntry*, std::size_t> positions;
  positions.reserve(entries_.size());
  for (std::size_t i = 0; i < entries_.size(); ++i) positions.emplace(entries_[i].get(), i);
  for (std::size_t i = result.size(); i < rows.size(); ++i) {
    const auto found = positions.find(rows[i].get());
    result.push_back(found != positions.end() ? balances[found->second] : 0.0);
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

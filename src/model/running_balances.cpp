#include "model/running_balances.h"

#include <algorithm>

#include "model/account.h"
#include "model/entry_log.h"
#include "model/entry_walk.h"
#include "model/register_place.h"

namespace tallyfold {
namespace {

bool IsBefore(const PackedKey& a, const PackedKey& b) noexcept {
  return a.high != b.high ? a.high < b.high : a.low < b.low;
}

}  // namespace

RunningBalanceTable::RunningBalanceTable(const EntryList& entries, double starting_balance)
    : starting_balance_(starting_balance) {
  std::vector<double> amounts;
  amounts.reserve(entries.size());
  places_.reserve(entries.size());
  WalkEntries(entries, [&](const LDGRAccountEntry& entry) {
    places_.push_back(RegisterPlace(entry).Packed(places_.size()));
    amounts.push_back(entry.GetAmount());
  });
  SortPacked(places_);
  entries_.reserve(entries.size());
  amounts_.reserve(entries.size());
  for (const PackedKey& place : places_) {
    entries_.push_back(entries[place.index].get());
    amounts_.push_back(amounts[place.index]);
  }
  balances_.resize(entries.size());
  SumFrom(0);
}

bool RunningBalanceTable::SharesWithLineBefore(std::size_t line) const noexcept {
  return line > 0 && line < places_.size() && !IsBefore(places_[line - 1], places_[line]);
}

void RunningBalanceTable::SumFrom(std::size_t line) noexcept {
  // Lines of one place are summed together; the balance before them must be that of a last line.
  while (SharesWithLineBefore(line) || (line > 0 && SharesWithLineBefore(line - 1))) --line;
  double balance = line > 0 ? balances_[line - 1] : starting_balance_;
  while (line < places_.size()) {
    std::size_t end = line + 1;
    while (SharesWithLineBefore(end)) ++end;
    // Checks that share their place count in one another's balance, other entries do not.
    const bool shares = RegisterPlace::IsCheckPacked(places_[line]);
    const double before = balance;
    for (std::size_t i = line; i < end; ++i) balance += amounts_[i];
    for (; line < end; ++line) balances_[line] = shares ? balance : before + amounts_[line];
  }
}

std::size_t RunningBalanceTable::FirstNotBefore(const PackedKey& place) const noexcept {
  const auto found = std::lower_bound(places_.begin(), places_.end(), place, IsBefore);
  return static_cast<std::size_t>(found - places_.begin());
}

bool RunningBalanceTable::TakeUp(std::span<const EntryTouch> touches) {
  auto last = LastTouches(touches);
  std::size_t first_changed = places_.size();
  for (EntryTouch& touch : last) {
    const auto found = std::find(entries_.begin(), entries_.end(), touch.entry.get());
    if (found == entries_.end()) continue;
    const auto line = found - entries_.begin();
    const PackedKey former = places_[static_cast<std::size_t>(line)];
    // What shared its place is summed anew too.
    first_changed = std::min(first_changed, FirstNotBefore(former));
    const PackedKey place = RegisterPlace(*touch.entry).Packed(0);
    if (touch.is_there && !IsBefore(former, place) && !IsBefore(place, former)) {
      amounts_[static_cast<std::size_t>(line)] = touch.entry->GetAmount();
      touch.is_there = false;  // nothing is to be put in
      continue;
    }
    entries_.erase(found);
    places_.erase(places_.begin() + line);
    amounts_.erase(amounts_.begin() + line);
    balances_.erase(balances_.begin() + line);
  }
  for (const EntryTouch& touch : last) {
    if (!touch.is_there) continue;
    const PackedKey place = RegisterPlace(*touch.entry).Packed(0);
    const std::size_t first = FirstNotBefore(place);
    // Who shares a place is summed in the order of the account.
    if (first < places_.size() && !IsBefore(place, places_[first])) return false;
    const auto line = static_cast<std::ptrdiff_t>(first);
    places_.insert(places_.begin() + line, place);
    entries_.insert(entries_.begin() + line, touch.entry.get());
    amounts_.insert(amounts_.begin() + line, touch.entry->GetAmount());
    balances_.insert(balances_.begin() + line, 0.0);
    first_changed = std::min(first_changed, first);
  }
  SumFrom(first_changed);
  return true;
}

void RunningBalanceTable::CatchUpWith(const LDGRAccount& account) {
  const std::uint64_t mark = account.EntriesMark();
  if (mark_ != 0 && money_revision_ == account.MoneyRevision()) {
    mark_ = mark;
    return;
  }
  const auto touches = account.EntriesTouchedSince(mark_);
  const bool are_few = touches && touches->size() <= EntryLog::kFew;
  // Until all is done, it is as if nothing were known.
  mark_ = 0;
  if (!are_few || starting_balance_ != account.GetStartingBalance() ||
      (!touches->empty() && !TakeUp(*touches))) {
    *this = RunningBalanceTable(account.GetEntries(), account.GetStartingBalance());
  }
  mark_ = mark;
  money_revision_ = account.MoneyRevision();
}

double RunningBalanceTable::At(const LDGRAccountEntry& entry) const noexcept {
  const auto is_at = [&](std::size_t line) {
    return line < entries_.size() && entries_[line] == &entry;
  };
  for (const std::size_t line : {latest_ + 1, latest_}) {
    if (is_at(line)) return balances_[latest_ = line];
  }
  const PackedKey place = RegisterPlace(entry).Packed(0);
  std::size_t line = FirstNotBefore(place);
  while (line < places_.size() && !is_at(line) && !IsBefore(place, places_[line])) ++line;
  if (!is_at(line)) return 0.0;
  return balances_[latest_ = line];
}

std::vector<double> RunningBalanceTable::Of(const EntryList& rows) const {
  std::vector<double> result;
  result.reserve(rows.size());
  WalkEntries(rows, [&](const LDGRAccountEntry& row) { result.push_back(At(row)); });
  return result;
}

}  // namespace tallyfold

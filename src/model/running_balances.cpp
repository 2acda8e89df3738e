#include "model/running_balances.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>

#include "model/entry_walk.h"
#include "model/packed_sort.h"
#include "model/register_place.h"

namespace tallyfold {
namespace {

// The running balance at each of the entries.
std::vector<double> BalancesOf(const EntryList& entries, double balance) {
  std::vector<double> amounts;
  std::vector<PackedKey> lines;
  amounts.reserve(entries.size());
  lines.reserve(entries.size());
  WalkEntries(entries, [&](const LDGRAccountEntry& entry) {
    lines.push_back(RegisterPlace(entry).Packed(lines.size()));
    amounts.push_back(entry.GetAmount());
  });
  SortPacked(lines);

  std::vector<double> balances(entries.size());
  for (auto line = lines.begin(); line != lines.end();) {
    const auto end = std::find_if(line, lines.end(), [line](const PackedKey& other) {
      return other.high != line->high || other.low != line->low;
    });
    // Checks that share their place count in one another's balance, other entries do not.
    const bool shares = RegisterPlace::IsCheckPacked(*line);
    const double before = balance;
    for (auto i = line; i != end; ++i) balance += amounts[i->index];
    for (; line != end; ++line) {
      balances[line->index] = shares ? balance : before + amounts[line->index];
    }
  }
  return balances;
}

}  // namespace

RunningBalanceTable::RunningBalanceTable(const EntryList& entries, double starting_balance)
    : balances_(BalancesOf(entries, starting_balance)) {
  entries_.reserve(entries.size());
  for (const auto& entry : entries) entries_.push_back(entry.get());
}

std::vector<double> RunningBalanceTable::Of(const EntryList& rows) const {
  std::vector<double> result;
  result.reserve(rows.size());
  std::size_t position = 0;
  for (const auto& row : rows) {
    while (position < entries_.size() && entries_[position] != row.get()) ++position;
    if (position == entries_.size()) break;
    result.push_back(balances_[position++]);
  }
  if (result.size() == rows.size()) return result;

  std::unordered_map<const LDGRAccountEntry*, std::size_t> positions;
  positions.reserve(entries_.size());
  for (std::size_t i = 0; i < entries_.size(); ++i) positions.emplace(entries_[i], i);
  for (std::size_t i = result.size(); i < rows.size(); ++i) {
    const auto found = positions.find(rows[i].get());
    result.push_back(found != positions.end() ? balances_[found->second] : 0.0);
  }
  return result;
}

}  // namespace tallyfold

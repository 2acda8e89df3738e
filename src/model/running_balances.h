#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "model/account_entry.h"
#include "model/entry_log.h"
#include "model/packed_sort.h"

namespace tallyfold {

class LDGRAccount;

// The running balances of all entries of an account, in the order of the register (see
// LDGRAccount::GetRunningBalanceAtEntry()). They stay what they are until it catches up.
class RunningBalanceTable {
 public:
  RunningBalanceTable() = default;
  RunningBalanceTable(const EntryList& entries, double starting_balance);

  // Takes up what changed in the account since the last time; the account is always the same.
  void CatchUpWith(const LDGRAccount& account);

  // 0.0 for an entry that was not among those of the account.
  [[nodiscard]] double At(const LDGRAccountEntry& entry) const noexcept;
  [[nodiscard]] std::vector<double> Of(const EntryList& rows) const;

 private:
  // False when that would need the order of the account.
  [[nodiscard]] bool TakeUp(std::span<const EntryTouch> touches);
  [[nodiscard]] std::size_t FirstNotBefore(const PackedKey& place) const noexcept;
  // Whether the two lines before and at `line` share their place.
  [[nodiscard]] bool SharesWithLineBefore(std::size_t line) const noexcept;
  void SumFrom(std::size_t line) noexcept;

  // By line. Entries are only compared, never looked into.
  std::vector<PackedKey> places_;
  std::vector<const LDGRAccountEntry*> entries_;
  std::vector<double> amounts_;
  std::vector<double> balances_;
  double starting_balance_ = 0.0;
  // Of the account as it was: where its changes of entries stood, 0 for nothing, and its money.
  std::uint64_t mark_ = 0;
  std::uint64_t money_revision_ = 0;
  // The line that was asked for last: lines are mostly asked for one after the other.
  mutable std::size_t latest_ = 0;
};

}  // namespace tallyfold

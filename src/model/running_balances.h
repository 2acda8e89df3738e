#pragma once

#include <vector>

#include "model/account_entry.h"

namespace tallyfold {

// The running balances of all entries of an account, computed together (see
// LDGRAccount::GetRunningBalanceAtEntry()). They stay what they were when they were computed.
class RunningBalanceTable {
 public:
  RunningBalanceTable() = default;
  RunningBalanceTable(const EntryList& entries, double starting_balance);

  // By row; 0.0 for an entry that was not among those of the account. Rows in the order of the
  // account, filtered or not, are found fastest.
  [[nodiscard]] std::vector<double> Of(const EntryList& rows) const;

 private:
  // Only compared, never looked into.
  std::vector<const LDGRAccountEntry*> entries_;
  std::vector<double> balances_;
};

}  // namespace tallyfold

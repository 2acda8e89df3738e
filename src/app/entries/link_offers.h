#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "ledger/transfer_pair.h"
#include "model/account.h"
#include "model/account_entry.h"

namespace tallyfold {

// So many days a transfer may be under way between two banks.
inline constexpr std::int64_t kMostDaysUnderWay = 5;

// The unlinked entries of other accounts, none of them locked, that may be the other half of an
// unlinked entry of `account`: of the opposite amount, the nearest day first, at most `most`. None
// for an amount of 0.
[[nodiscard]] std::vector<TransferPair> PairsFor(const AccountList& accounts,
                                                 const std::shared_ptr<LDGRAccount>& account,
                                                 const std::shared_ptr<LDGRAccountEntry>& entry,
                                                 std::size_t most);

// How many days lie between the two.
[[nodiscard]] std::int64_t DaysBetween(const TransferPair& pair) noexcept;

// Of entries that were imported into `account` those that can only be half of one transfer: within
// kMostDaysUnderWay there is one entry in the other accounts that may be the other half, and for
// that one no other of the imported.
[[nodiscard]] std::vector<TransferPair> CertainPairs(const AccountList& accounts,
                                                     const std::shared_ptr<LDGRAccount>& account,
                                                     const EntryList& imported);

}  // namespace tallyfold

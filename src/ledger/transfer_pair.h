#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "model/account.h"
#include "model/account_entry.h"

namespace tallyfold {

class Change;

// An entry of an account, and the entry of another account that is, or may become, its other half.
struct TransferPair {
  std::shared_ptr<LDGRAccount> account;
  std::shared_ptr<LDGRAccountEntry> entry;
  std::shared_ptr<LDGRAccount> other_account;
  std::shared_ptr<LDGRAccountEntry> other;
};

// Whether the entry belongs to no transfer between two of the accounts, whatever its kind: debits,
// deposits, and halves of transfers whose other account is gone or was unlinked.
[[nodiscard]] bool IsUnlinked(const AccountList& accounts, const LDGRAccountEntry& entry);

// Why the two entries cannot become one transfer, in the user's words; "" when they can: both are
// unlinked entries of a kind, in two accounts that are not locked, and their amounts are opposite.
[[nodiscard]] std::string ProblemOfPair(const AccountList& accounts, const TransferPair& pair);

// Makes them the halves of one transfer, which ProblemOfPair() must allow. Each keeps its number,
// amount, day, marks and split; a description that one of them lacks is that of the other. A payee
// that gives way to the name of the other account goes to the notes. Types give way to the
// direction of the transfer: their names come back.
std::vector<std::string> LinkPair(Change& change, const TransferPair& pair);

}  // namespace tallyfold

#include "ledger/transfer_pair.h"

#include <algorithm>

#include "ledger/change.h"
#include "model/amounts.h"
#include "model/entry_type.h"
#include "model/text.h"
#include "platform/ambient.h"
#include "platform/message.h"

namespace tallyfold {
namespace {

constexpr std::int32_t kNoType = -1;

// Takes the payee out of the way of the other account's name.
void KeepPayee(LDGRAccountEntry& entry, const std::string& account_name) {
  const std::string& payee = entry.GetToFrom();
  const bool stands_for_split = entry.GetSplit() != nullptr && payee == LocalizedText("Split");
  if (!payee.empty() && !stands_for_split && CompareIgnoringCase(payee, account_name) != 0) {
    const std::string& notes = entry.GetNotes();
    entry.SetNotes(notes.empty() ? payee : notes + '\n' + payee);
  }
  entry.SetToFrom(account_name);
}

void BecomeHalf(const LDGRAccount& account, LDGRAccountEntry& entry,
                const LDGRAccount& other_account, const LDGRAccountEntry& other, bool is_origin,
                std::vector<std::string>& dropped_types) {
  // A debit's split tells its amount without the sign, a transfer's tells nothing of it.
  const double amount = entry.GetAmount();
  entry.SetIsDebit(false);
  entry.SetIsDeposit(false);
  entry.SetIsTransfer(true);
  entry.SetIsTransferOrigin(is_origin);
  entry.SetAmount(amount);
  entry.SetTransferAccount(other_account.GetNumber());
  entry.SetTransferEntry(other.GetNumber());
  if (entry.GetDescription().empty()) entry.SetDescription(other.GetDescription());
  KeepPayee(entry, other_account.GetName());
  if (const auto type = account.AccountEntryTypeForNumber(entry.GetType())) {
    if (std::ranges::find(dropped_types, type->GetName()) == dropped_types.end()) {
      dropped_types.push_back(type->GetName());
    }
  }
  entry.SetType(kNoType);
}

bool HasKind(const LDGRAccountEntry& entry) {
  return entry.IsDebit() || entry.IsDeposit() || entry.IsTransfer();
}

}  // namespace

bool IsUnlinked(const AccountList& accounts, const LDGRAccountEntry& entry) {
  if (!entry.IsTransfer()) return true;
  return std::ranges::none_of(accounts, [&entry](const auto& account) {
    return account->GetNumber() == entry.GetTransferAccount();
  });
}

std::string ProblemOfPair(const AccountList& accounts, const TransferPair& pair) {
  if (pair.account == pair.other_account) {
    return LocalizedText("The halves of a transfer are in two accounts.");
  }
  for (const auto& account : {pair.account, pair.other_account}) {
    if (!account->IsLocked()) continue;
    return Message("The account \"{1}\" is locked.", {account->GetName()});
  }
  if (!HasKind(*pair.entry) || !HasKind(*pair.other)) {
    return LocalizedText("One of the entries is neither a debit nor a deposit.");
  }
  if (!IsUnlinked(accounts, *pair.entry) || !IsUnlinked(accounts, *pair.other)) {
    return LocalizedText("One of the entries is half of a transfer already.");
  }
  if (RoundedAmount(pair.entry->GetAmount()) != -RoundedAmount(pair.other->GetAmount())) {
    return LocalizedText("The amounts of the entries are not opposite.");
  }
  return "";
}

std::vector<std::string> LinkPair(Change& change, const TransferPair& pair) {
  LDGRAccountEntry& entry = change.Edit(pair.account, pair.entry);
  LDGRAccountEntry& other = change.Edit(pair.other_account, pair.other);
  const bool is_origin = entry.GetAmount() <= 0.0;
  std::vector<std::string> dropped_types;
  BecomeHalf(*pair.account, entry, *pair.other_account, other, is_origin, dropped_types);
  BecomeHalf(*pair.other_account, other, *pair.account, entry, !is_origin, dropped_types);
  return dropped_types;
}

}  // namespace tallyfold

#include "app/entries/entry_kinds.h"

namespace tallyfold {

std::optional<EntryKind> KindOf(const LDGRAccountEntry& entry) noexcept {
  const bool is_debit = entry.IsDebit();
  const bool is_deposit = entry.IsDeposit();
  const bool is_transfer = entry.IsTransfer();
  if (int{is_debit} + int{is_deposit} + int{is_transfer} != 1) return std::nullopt;
  if (is_debit) return EntryKind::Debit;
  return is_deposit ? EntryKind::Deposit : EntryKind::Transfer;
}

bool CanTake(const LDGRAccountEntry& entry, const LDGRAccountEntryType& type) noexcept {
  if (type.GetIsTransfer()) return false;
  return type.GetIsDeposit() ? entry.IsDeposit() && !entry.IsDebit() : entry.IsDebit();
}

}  // namespace tallyfold

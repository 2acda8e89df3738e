#include "app/entries/transfer_links.h"

namespace tallyfold {
namespace {

constexpr std::int32_t kNotLinked = -1;

bool PointsBack(const LDGRAccountEntry& half, const LDGRAccount& account,
                const LDGRAccountEntry& entry) {
  return half.IsTransfer() && half.GetTransferAccount() == account.GetNumber() &&
         half.GetTransferEntry() == entry.GetNumber();
}

// Both halves tell the same transfer, from either side.
void FillOtherHalf(const LDGRAccount& account, const LDGRAccountEntry& entry,
                   LDGRAccountEntry& half) {
  half.SetIsTransfer(true);
  half.SetTransferEntry(entry.GetNumber());
  half.SetTransferAccount(account.GetNumber());
  half.SetToFrom(account.GetName());
  half.SetAmount(-entry.GetAmount());
  half.SetDescription(entry.GetDescription());
  half.SetDate(entry.GetDate());
  half.SetIsTransferOrigin(!entry.IsTransferOrigin());
}

}  // namespace

std::shared_ptr<LDGRAccountEntry> TransferLinks::Transfer_LinkedEntry(
    const LDGRAccountEntry* entry) const {
  const auto account = desk_.SelectedAccount();
  if (entry == nullptr || account == nullptr || !entry->IsTransfer()) return nullptr;
  return OtherHalf(*account, *entry);
}

std::shared_ptr<LDGRAccountEntry> TransferLinks::OtherHalf(const LDGRAccount& account,
                                                           const LDGRAccountEntry& entry) const {
  const auto other = desk_.AccountWithNumber(entry.GetTransferAccount());
  if (other == nullptr) return nullptr;
  const std::int32_t number = entry.GetTransferEntry();
  std::shared_ptr<LDGRAccountEntry> first;
  for (const auto& half : other->GetEntries()) {
    if (half->GetNumber() != number || half.get() == &entry) continue;
    if (PointsBack(*half, account, entry)) return half;
    if (first == nullptr && number != kNotLinked) first = half;
  }
  return first;
}

void TransferLinks::Link(LDGRAccount& account, LDGRAccountEntry& entry, bool is_new,
                         std::int32_t other, std::string_view name) const {
  const auto target = desk_.AccountWithNumber(other);
  std::shared_ptr<LDGRAccountEntry> half;
  if (target == nullptr) {
    RemoveOtherHalf(account, entry);
  } else if (is_new) {
    half = std::make_shared<LDGRAccountEntry>();
    half->SetNumber(target->NextAvailableNumber());
    target->AddEntry(half);
  } else if (other == entry.GetTransferAccount()) {
    half = OtherHalf(account, entry);
  } else {
    RemoveOtherHalf(account, entry);
    half = std::make_shared<LDGRAccountEntry>();
    target->AddEntry(half);
  }

  entry.SetTransferAccount(other);
  entry.SetToFrom(name);
  if (half == nullptr) return;
  entry.SetTransferEntry(half->GetNumber());
  FillOtherHalf(account, entry, *half);
  target->NoteChange();
}

void TransferLinks::UnlinkOtherHalf(const LDGRAccount& account,
                                    const LDGRAccountEntry& entry) const {
  const auto half = OtherHalf(account, entry);
  if (half == nullptr) return;
  half->SetTransferEntry(kNotLinked);
  half->SetTransferAccount(kNotLinked);
  desk_.AccountWithNumber(entry.GetTransferAccount())->NoteChange();
}

void TransferLinks::RemoveOtherHalf(const LDGRAccount& account,
                                    const LDGRAccountEntry& entry) const {
  const auto half = OtherHalf(account, entry);
  if (half == nullptr) return;
  desk_.AccountWithNumber(entry.GetTransferAccount())->RemoveEntry(half.get());
}

void TransferLinks::Account_SyncTransfers(LDGRAccount& account) const {
  bool changed = false;
  for (const auto& entry : account.GetEntries()) {
    if (!entry->IsTransfer()) continue;
    const auto other = desk_.AccountWithNumber(entry->GetTransferAccount());
    if (other == nullptr || entry->GetToFrom() == other->GetName()) continue;
    entry->SetToFrom(other->GetName());
    changed = true;
  }
  if (changed) account.NoteChange();
}

void TransferLinks::Accounts_SyncTransfers() const {
  for (const auto& account : desk_.accounts()) Account_SyncTransfers(*account);
}

}  // namespace tallyfold

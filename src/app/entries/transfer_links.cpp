#include "app/entries/transfer_links.h"

#include <algorithm>
#include <utility>

#include "model/account_schedule.h"
#include "model/amounts.h"
#include "model/text.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

constexpr std::int32_t kNotLinked = -1;

bool PointsBack(const LDGRAccountEntry& half, const LDGRAccount& account,
                const LDGRAccountEntry& entry) {
  return half.IsTransfer() && half.GetTransferAccount() == account.GetNumber() &&
         half.GetTransferEntry() == entry.GetNumber();
}

bool MirrorsAmount(const LDGRAccountEntry& half, const LDGRAccountEntry& entry) {
  return RoundedAmount(half.GetAmount()) == -RoundedAmount(entry.GetAmount());
}

// Drops those that do not match, unless none does.
template <typename Matches>
void Narrow(EntryList& halves, const Matches& matches) {
  const auto rest = std::stable_partition(halves.begin(), halves.end(),
                                          [&matches](const auto& half) { return matches(*half); });
  if (rest != halves.begin()) halves.erase(rest, halves.end());
}

// Both halves tell the same transfer, from either side.
void Join(const LDGRAccount& account, LDGRAccountEntry& entry, LDGRAccountEntry& half) {
  entry.SetTransferEntry(half.GetNumber());
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

TransferLinks::Search TransferLinks::FindOtherHalf(const LDGRAccount& account,
                                                   const LDGRAccountEntry& entry) const {
  const auto other = desk_.AccountWithNumber(entry.GetTransferAccount());
  if (other == nullptr) return {};
  const std::int32_t number = entry.GetTransferEntry();
  EntryList pointing_back;
  std::shared_ptr<LDGRAccountEntry> first;
  for (const auto& half : other->GetEntries()) {
    if (half->GetNumber() != number || half.get() == &entry) continue;
    if (PointsBack(*half, account, entry)) pointing_back.push_back(half);
    if (first == nullptr && number != kNotLinked) first = half;
  }
  if (pointing_back.empty()) return {first, false};
  if (pointing_back.size() == 1) return {pointing_back.front(), false};

  std::erase_if(pointing_back, [&entry](const auto& half) { return !MirrorsAmount(*half, entry); });
  if (pointing_back.empty()) return {nullptr, true};
  Narrow(pointing_back, [&entry](const auto& half) { return half.GetDate() == entry.GetDate(); });
  Narrow(pointing_back,
         [&entry](const auto& half) { return half.GetDescription() == entry.GetDescription(); });
  return {pointing_back.front(), false};
}

std::string TransferLinks::NoteOnOtherHalf(const LDGRAccount& account,
                                           const LDGRAccountEntry& entry) const {
  if (!entry.IsTransfer() || !FindOtherHalf(account, entry).is_ambiguous) return "";
  return MessageWithText(
      LocalizedText("Several entries of the account \"%@\" could be the other half of this "
                    "transfer, and none has its amount; they stay as they are."),
      desk_.AccountWithNumber(entry.GetTransferAccount())->GetName());
}

void TransferLinks::LinkNew(LDGRAccount& account, LDGRAccountEntry& entry, std::int32_t other,
                            std::string_view name) const {
  entry.SetTransferAccount(other);
  entry.SetToFrom(name);
  const auto target = desk_.AccountWithNumber(other);
  if (target == nullptr) return;
  auto half = std::make_shared<LDGRAccountEntry>();
  half->SetNumber(target->NextAvailableNumber());
  Join(account, entry, *half);
  target->AddEntry(std::move(half));
}

void TransferLinks::Relink(LDGRAccount& account, LDGRAccountEntry& entry,
                           const std::shared_ptr<LDGRAccountEntry>& half, std::int32_t other,
                           std::string_view name) const {
  const auto target = desk_.AccountWithNumber(other);
  auto kept = half;
  if (target == nullptr || other != entry.GetTransferAccount()) {
    Remove(entry.GetTransferAccount(), half.get());
    kept = nullptr;
    if (target != nullptr) {
      kept = std::make_shared<LDGRAccountEntry>();
      target->AddEntry(kept);
    }
  }
  entry.SetTransferAccount(other);
  entry.SetToFrom(name);
  if (kept == nullptr) return;
  Join(account, entry, *kept);
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
  Remove(entry.GetTransferAccount(), OtherHalf(account, entry).get());
}

void TransferLinks::Remove(std::int32_t account, const LDGRAccountEntry* half) const {
  if (half != nullptr) desk_.AccountWithNumber(account)->RemoveEntry(half);
}

bool TransferLinks::Rename(LDGRAccountEntry& entry) const {
  if (!entry.IsTransfer()) return false;
  const auto other = desk_.AccountWithNumber(entry.GetTransferAccount());
  if (other == nullptr || entry.GetToFrom() == other->GetName()) return false;
  entry.SetToFrom(other->GetName());
  return true;
}

void TransferLinks::Account_SyncTransfers(LDGRAccount& account) const {
  bool changed = false;
  for (const auto& entry : account.GetEntries()) changed |= Rename(*entry);
  if (changed) account.NoteChange();
}

void TransferLinks::Accounts_SyncTransfers() const {
  for (const auto& account : desk_.accounts()) Account_SyncTransfers(*account);
}

void TransferLinks::Schedules_SyncTransfers() const {
  for (const auto& account : desk_.accounts()) {
    bool changed = false;
    for (const auto& schedule : account->GetSchedules()) changed |= Rename(*schedule);
    if (changed) account->NoteChange();
  }
}

}  // namespace tallyfold

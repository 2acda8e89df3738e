#include "ledger/transfer_links.h"

#include <algorithm>
#include <utility>

#include "ledger/change.h"
#include "model/account_schedule.h"
#include "model/amounts.h"
#include "model/current_account.h"
#include "platform/message.h"

namespace tallyfold {
namespace {

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

template <typename Record>
void Unlink(Change& change, const std::shared_ptr<LDGRAccount>& account,
            const std::shared_ptr<Record>& record, std::int32_t other) {
  if (record->GetTransferAccount() != other) return;
  change.Edit(account, record).SetTransferAccount(kNotLinked);
  record->SetTransferEntry(kNotLinked);
}

}  // namespace

std::shared_ptr<LDGRAccountEntry> TransferLinks::Transfer_LinkedEntry(
    const LDGRAccountEntry* entry) const {
  const auto account = CurrentAccount();
  if (entry == nullptr || account == nullptr || !entry->IsTransfer()) return nullptr;
  return OtherHalf(*account, *entry);
}

TransferLinks::Search TransferLinks::FindOtherHalf(const LDGRAccount& account,
                                                   const LDGRAccountEntry& entry) const {
  const auto other = store_.AccountWithNumber(entry.GetTransferAccount());
  if (other == nullptr) return {};
  const std::int32_t number = entry.GetTransferEntry();
  EntryList pointing_back;
  std::shared_ptr<LDGRAccountEntry> first;
  for (const auto& half : other->EntriesWithNumber(number)) {
    if (half.get() == &entry) continue;
    if (PointsBack(*half, account, entry)) pointing_back.push_back(half);
    if (first == nullptr && number != kNotLinked) first = half;
  }
  return Choose(entry, std::move(pointing_back), first);
}

TransferLinks::Search TransferLinks::Choose(const LDGRAccountEntry& entry, EntryList pointing_back,
                                            const std::shared_ptr<LDGRAccountEntry>& first) {
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
  return Message(
      "Several entries of the account \"{1}\" could be the other half of this "
      "transfer, and none has its amount; they stay as they are.",
      {store_.AccountWithNumber(entry.GetTransferAccount())->GetName()});
}

void TransferLinks::LinkNew(Change& change, LDGRAccount& account, LDGRAccountEntry& entry,
                            std::int32_t other, std::string_view name) const {
  entry.SetTransferAccount(other);
  entry.SetToFrom(name);
  const auto target = store_.AccountWithNumber(other);
  if (target == nullptr) return;
  auto half = std::make_shared<LDGRAccountEntry>();
  half->SetNumber(change.NextNumber(target));
  Join(account, entry, *half);
  change.Add(target, std::move(half));
}

void TransferLinks::LinkScheduled(Change& change, LDGRAccount& account,
                                  LDGRAccountEntry& entry) const {
  const auto other = store_.AccountWithNumber(entry.GetTransferAccount());
  entry.SetTransferEntry(kNotLinked);
  if (other.get() == &account) {
    entry.SetTransferAccount(kNotLinked);
    return;
  }
  LinkNew(change, account, entry, entry.GetTransferAccount(),
          other != nullptr ? other->GetName() : entry.GetToFrom());
}

void TransferLinks::Relink(Change& change, LDGRAccount& account, LDGRAccountEntry& entry,
                           const std::shared_ptr<LDGRAccountEntry>& half, std::int32_t other,
                           std::string_view name) const {
  const auto target = store_.AccountWithNumber(other);
  auto kept = half;
  if (target == nullptr || other != entry.GetTransferAccount()) {
    Remove(change, entry.GetTransferAccount(), half.get());
    kept = nullptr;
    if (target != nullptr) {
      kept = std::make_shared<LDGRAccountEntry>();
      change.Add(target, kept);
    }
  }
  entry.SetTransferAccount(other);
  entry.SetToFrom(name);
  if (kept == nullptr) return;
  Join(account, entry, change.Edit(target, kept));
}

void TransferLinks::Remove(Change& change, std::int32_t account,
                           const LDGRAccountEntry* half) const {
  if (half != nullptr) change.Remove(store_.AccountWithNumber(account), half);
}

const std::string* TransferLinks::NewName(const LDGRAccountEntry& entry) const {
  if (!entry.IsTransfer()) return nullptr;
  const auto other = store_.AccountWithNumber(entry.GetTransferAccount());
  return other == nullptr || entry.GetToFrom() == other->GetName() ? nullptr : &other->GetName();
}

void TransferLinks::Account_SyncTransfers(Change& change,
                                          const std::shared_ptr<LDGRAccount>& account) const {
  for (const auto& entry : account->GetEntries()) {
    if (const auto* name = NewName(*entry)) change.Edit(account, entry).SetToFrom(*name);
  }
}

void TransferLinks::Accounts_SyncTransfers(Change& change) const {
  for (const auto& account : store_.accounts()) Account_SyncTransfers(change, account);
}

void TransferLinks::Schedules_SyncTransfers(Change& change) const {
  for (const auto& account : store_.accounts()) {
    for (const auto& schedule : account->GetSchedules()) {
      if (const auto* name = NewName(*schedule)) change.Edit(account, schedule).SetToFrom(*name);
    }
  }
}

void TransferLinks::CutLinksTo(Change& change, const LDGRAccount& account) const {
  const std::int32_t number = account.GetNumber();
  for (const auto& other : store_.accounts()) {
    if (other.get() == &account) continue;
    for (const auto& entry : other->GetEntries()) Unlink(change, other, entry, number);
    for (const auto& schedule : other->GetSchedules()) Unlink(change, other, schedule, number);
    if (other->lastTransferAccount() == number) {
      change.EditOptions(other).setLastTransferAccount(kNotLinked);
    }
  }
}

std::size_t TransferLinks::EntriesLinkedTo(const LDGRAccount& account) const {
  std::size_t linked = 0;
  for (const auto& other : store_.accounts()) {
    if (other.get() == &account) continue;
    for (const auto& entry : other->GetEntries()) {
      if (entry->IsTransfer() && entry->GetTransferAccount() == account.GetNumber()) ++linked;
    }
  }
  return linked;
}

}  // namespace tallyfold

#include "app/entries/entry_defaults.h"

#include "model/account.h"
#include "model/account_entry.h"
#include "model/date_number.h"
#include "model/entry_type.h"
#include "storage/preferences.h"

namespace tallyfold {
namespace {

constexpr std::int32_t kDateOfLastEnteredEntry = 1;  // of the preference for the date

void SetDebitDefaults(LDGRAccountEntry& entry, const LDGRAccount& account,
                      const LDGRPreferences& preferences) {
  const auto& type = account.GetDefaultDebitType();
  entry.SetType(type ? type->GetNumber() : -1);
  const bool is_check = type && type->GetIsCheck();
  entry.SetIsCheck(is_check);
  if (is_check) {
    entry.SetCheckNumber(SuggestedCheckNumber(account, preferences).value_or(0));
  }
}

}  // namespace

DateNumber DateOfNewEntry(const LDGRAccount& account, const LDGRPreferences& preferences) {
  if (preferences.GetDefaultDateWhenAddingEntries() == kDateOfLastEnteredEntry) {
    if (const auto last = account.GetLastEnteredEntry()) return last->GetDate();
  }
  return TodaysDateNumber();
}

std::shared_ptr<LDGRAccountEntry> NewEntryWithDefaults(EntryKind kind, std::int32_t number,
                                                       const LDGRAccount& account,
                                                       const LDGRPreferences& preferences) {
  auto entry = std::make_shared<LDGRAccountEntry>();
  entry->SetDate(DateOfNewEntry(account, preferences));
  entry->SetAmount(0.0);
  switch (kind) {
    case EntryKind::Debit:
      entry->SetIsDebit(true);
      break;
    case EntryKind::Deposit:
      entry->SetIsCheck(false);
      entry->SetIsDeposit(true);
      break;
    case EntryKind::Transfer:
      entry->SetIsTransfer(true);
      break;
  }
  entry->SetNumber(number);
  switch (kind) {
    case EntryKind::Debit:
      SetDebitDefaults(*entry, account, preferences);
      break;
    case EntryKind::Deposit: {
      const auto& type = account.GetDefaultDepositType();
      entry->SetType(type ? type->GetNumber() : -1);
      break;
    }
    case EntryKind::Transfer:
      entry->SetType(-1);
      entry->SetIsTransferOrigin(account.isLastTransferOrigin());
      entry->SetTransferAccount(account.lastTransferAccount());
      entry->SetTransferEntry(-1);
      break;
  }
  return entry;
}

std::optional<std::int32_t> SuggestedCheckNumber(const LDGRAccount& account,
                                                 const LDGRPreferences& preferences) {
  if (!preferences.GetNumberChecksAutomatically()) return 0;
  const std::int32_t next =
      account.NextAvailableCheckNumberAfterEntry(account.GetLastEnteredCheck().get());
  if (next < 0) return std::nullopt;  // the account counts on from the highest number to the least
  return next;
}

}  // namespace tallyfold

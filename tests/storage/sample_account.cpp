#include "storage/sample_account.h"

#include "model/account.h"

namespace tallyfold {

namespace {

std::shared_ptr<LDGRAccountEntry> Entry(LDGRAccount& account, DateNumber date, double amount) {
  auto entry = std::make_shared<LDGRAccountEntry>();
  entry->SetNumber(account.NextAvailableNumber());
  entry->SetDate(date);
  entry->SetAmount(amount);
  entry->SetType(1);
  entry->SetDescription(kAwkwardText);
  entry->SetToFrom(" ");
  account.AddEntry(entry);
  return entry;
}

}  // namespace

std::shared_ptr<LDGRAccount> SampleAccount() {
  auto account = std::make_shared<LDGRAccount>();
  account->SetNumber(3);
  account->SetName(kAwkwardText);
  account->SetStartingBalance(-0.1);
  account->SetPassword("\xC3\xA4 b");
  account->DeactivateType(account->GetTypes().front());
  account->SetDefaultDebitType(account->GetTypes().back());
  account->SetPreferredTos({"", kAwkwardText});
  account->setEntryFilterData(kAwkwardText);
  plist::Array nested;
  nested.Append(plist::Dictionary());
  nested.Append(plist::Value::Opaque(plist::Kind::Date, "2007-03-05T12:00:00Z"));
  account->setReconcileFilterData(nested);
  account->setStatementBalance(-1e-7);

  const auto check = Entry(*account, 20070305, -1234567.89);
  check->SetIsDebit(true);
  check->SetIsCheck(true);
  check->SetCheckNumber(101);
  check->SetCleared(true);
  check->SetTaxDeductible(true);
  check->SetNotes(kAwkwardText);
  const auto split = std::make_shared<LDGRAccountEntrySplit>();
  split->SetDescription("first", 0);
  split->SetToFrom(kAwkwardText, 9);
  split->SetAmount(0.1, 0);
  split->SetAmount(0.2, 9);
  check->SetSplit(split);
  const auto transfer = Entry(*account, 20991231, 0.1);
  transfer->SetIsTransfer(true);
  transfer->SetTransferAccount(4);
  transfer->SetTransferEntry(17);
  Entry(*account, 0, 5)->SetIsDeposit(true);

  auto schedule = std::make_shared<LDGRAccountSchedule>();
  schedule->SetNumber(0);
  schedule->SetIsDebit(true);
  schedule->SetDate(20070131);
  schedule->SetAmount(-9.99);
  schedule->SetDescription("rent");
  schedule->SetRepeatIntervalType(2);
  schedule->SetRepeatInterval(0);  // never moves on
  schedule->AddCommittedDate(20070131);
  account->AddSchedule(schedule);
  return account;
}

}  // namespace tallyfold

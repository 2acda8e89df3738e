#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>

#include "exchange/qif_import.h"
#include "exchange/qif_review.h"
#include "ledger/change.h"
#include "ledger/ledger.h"
#include "model/account_records.h"
#include "summaries/account_summary.h"

namespace tallyfold {

// Plays operations as a user with restless hands would.
class RandomUser {
 public:
  RandomUser(Ledger& ledger, unsigned seed) : ledger_(ledger), random_(seed) {}

  // What it does from here on includes imports. They take numbers that nothing is given.
  void BeginImporting() noexcept { imports_ = true; }

  // One step; false when it came to nothing that can be undone.
  bool Act() {
    const auto account = PickAccount();
    Change change(ledger_, "Step", Below(4) == 0 ? nullptr : account);
    for (int i = 1 + Below(3); i > 0; --i) Operate(change, PickAccount());
    if (Below(3) == 0) {
      Change inner(ledger_, "Inner", account);
      Operate(inner, PickAccount());
      if (Below(2) == 0) inner.Close();
    }
    Operate(change, PickAccount());
    if (Below(8) == 0) return false;
    const std::size_t steps = ledger_.history().UndoLines().size();
    change.Close();
    return ledger_.history().UndoLines().size() > steps;
  }
  int Below(int limit) { return std::uniform_int_distribution(0, limit - 1)(random_); }

 private:
  std::shared_ptr<LDGRAccount> PickAccount() {
    return ledger_.accounts().accounts()[static_cast<std::size_t>(
        Below(static_cast<int>(ledger_.accounts().accounts().size())))];
  }
  template <typename List>
  typename List::value_type Pick(const List& list) {
    if (list.empty()) return nullptr;
    return list[static_cast<std::size_t>(Below(static_cast<int>(list.size())))];
  }
  std::shared_ptr<LDGRAccountEntry> NewEntry(Change& change,
                                             const std::shared_ptr<LDGRAccount>& account) {
    return MakeEntry({.number = change.NextNumber(account),
                      .date = 20070301 + Below(28),
                      .amount = Below(10000) / 100.0,
                      .check = Below(3) - 1});
  }

  void Operate(Change& change, const std::shared_ptr<LDGRAccount>& account) {
    const auto entry = Pick(account->GetEntries());
    switch (Below(imports_ ? 19 : 18)) {
      case 0:
      case 1:
        return change.Add(account, NewEntry(change, account));
      case 2:
        change.Remove(account, entry.get());
        return;
      case 3: {
        EntryList some;
        for (const auto& each : account->GetEntries()) {
          if (Below(4) == 0) some.push_back(each);
        }
        EXPECT_TRUE(change.Remove(account, some));
        return;
      }
      case 4: {
        EntryList many;
        for (int i = Below(6); i > 0; --i) many.push_back(NewEntry(change, account));
        return change.Add(account, many);
      }
      case 5:
        if (entry) change.Edit(account, entry).SetAmount(Below(100));
        return;
      case 6:
        if (entry) change.Edit(account, entry).SetCleared(!entry->GetCleared());
        return;
      case 7: {  // a transfer
        const auto other = PickAccount();
        auto half = NewEntry(change, account);
        auto counterpart = NewEntry(change, other);
        half->SetIsTransfer(true);
        half->SetTransferEntry(counterpart->GetNumber());
        half->SetTransferAccount(other->GetNumber());
        change.Add(account, half);
        change.Add(other, counterpart);
        change.EditOptions(account).setLastTransferAccount(other->GetNumber());
        return;
      }
      case 8: {
        if (!entry) return;
        auto split = LDGRAccountEntrySplit::ImageOf(entry->GetSplit().get());
        if (!split) split = std::make_shared<LDGRAccountEntrySplit>();
        split->SetAmount(Below(50), static_cast<std::size_t>(Below(10)));
        change.Edit(account, entry).SetSplit(split);
        if (Below(2) == 0) entry->GetSplit()->SetDescription("line", 3);
        return;
      }
      case 9:
        return change.Add(account, std::make_shared<LDGRAccountSchedule>());
      case 10:
        if (const auto schedule = Pick(account->GetSchedules())) {
          change.Edit(account, schedule).AddCommittedDate(20070301 + Below(28));
          if (Below(3) == 0) change.Remove(account, schedule.get());
        }
        return;
      case 11: {
        auto summary = std::make_shared<LDGRAccountSummary>();
        change.Add(account, summary);
        summary->setName("New");
        return;
      }
      case 12:
        if (const auto summary = Pick(account->accountSummaries())) {
          change.Edit(account, summary).setShowStyle(Below(2));
          if (Below(2) == 0) change.Remove(account, summary.get());
        }
        return;
      case 13: {
        LDGRAccount& types = change.EditTypes(account);
        types.AddType(MakeType(types.NextAvailableTypeNumber(), "Type", Below(2) == 0));
        types.SetDefaultDebitType(Pick(types.GetTypes()));
        if (const auto type = Pick(types.GetTypes())) type->SetName("Named");
        if (types.GetTypes().size() > 8) types.DeactivateType(Pick(types.GetTypes()));
        return;
      }
      case 14:
        change.EditOptions(account).SetStartingBalance(Below(20));
        account->SetPreferredTos({"to", std::to_string(Below(5))});
        if (Below(3) == 0) account->SetPassword(Below(2) == 0 ? "secret" : "");
        return;
      case 15:
        change.EditSettings(account).setEntryFilterType(Below(9));
        account->selectAccountSummary(Pick(account->accountSummaries()).get());
        return;
      case 16:
        if (ledger_.accounts().accounts().size() < 5) {
          auto added = std::make_shared<LDGRAccount>();
          added->SetNumber(ledger_.accounts().HighestAccountNumber() + 1);
          added->SetPassword("");
          change.AddAccount(added);
          change.Add(added, NewEntry(change, added));
        }
        return;
      case 18:
        return Import(change, account);
      default:
        if (ledger_.accounts().accounts().size() > 2) change.RemoveAccount(account);
        if (entry) {  // one that only changes its place
          change.Remove(account, entry.get());
          change.Add(account, entry);
          change.Edit(account, entry).SetNotes(std::to_string(Below(9)));
        }
        return;
    }
  }

  // Some with types of their own, some that repeat what is there.
  void Import(Change& change, const std::shared_ptr<LDGRAccount>& account) {
    std::string records = "!Type:Bank\n";
    for (int i = 1 + Below(4); i > 0; --i) {
      records += "D03/" + std::to_string(1 + Below(28)) + "/2007\nT-" + std::to_string(Below(100)) +
                 "\nLKind " + std::to_string(Below(6)) + "\n^\n";
    }
    // The review takes a number of the account for itself.
    change.EditSettings(account);
    LDGRQIFImport import(records);
    import.SetDateFormat("%m/%d/%Y");
    const QifResult result = import.Parse();
    QifReview review(result, result.entries, *account);
    const auto entries = review.entries();
    for (const auto& entry : entries) {
      if (Below(3) == 0) review.Match(entry);
      if (Below(5) == 0) review.Toggle(entry);
    }
    review.Commit(change, account, Below(2) == 0);
  }

  Ledger& ledger_;
  std::mt19937 random_;
  bool imports_ = false;
};

}  // namespace tallyfold

#pragma once

#include <map>
#include <string>
#include <vector>

#include "ledger/change.h"
#include "ledger/ledger.h"
#include "model/account_records.h"
#include "plist/writer.h"
#include "storage/accounts_store_fixture.h"
#include "summaries/account_summary.h"

namespace tallyfold {

// The file of these accounts, without what undoing leaves alone.
inline std::string BytesOf(const AccountList& accounts) {
  std::string bytes;
  for (const auto& account : accounts) {
    plist::Dictionary dictionary = account->asDictionary();
    dictionary.Remove("numberCount");
    dictionary.Remove("selectedAccountSummary");
    dictionary.Remove("entryFilterType");
    bytes += plist::ToXml(dictionary);
    bytes += account->IsLocked() ? "locked\n" : "open\n";
  }
  return bytes;
}

// Follows accounts by what it is told alone.
class Mirror final : public LedgerListener {
 public:
  void LedgerChanged(const ChangeSet& set) override {
    sets.push_back(set);
    for (const auto& account : set.accounts_removed) entries_.erase(account.get());
    for (const auto& account : set.accounts_added) Follow(*account);
    for (const AccountChanges& changes : set.accounts) {
      auto& texts = entries_[changes.account.get()];
      for (const auto& entry : changes.entries.removed) texts.erase(entry.get());
      for (const auto* list : {&changes.entries.inserted, &changes.entries.changed}) {
        for (const auto& entry : *list) texts[entry.get()] = plist::ToXml(entry->asDictionary());
      }
    }
  }
  void Follow(const LDGRAccount& account) {
    auto& texts = entries_[&account] = {};
    for (const auto& entry : account.GetEntries()) {
      texts[entry.get()] = plist::ToXml(entry->asDictionary());
    }
  }
  [[nodiscard]] bool Equals(const AccountList& accounts) const {
    Mirror now;
    for (const auto& account : accounts) now.Follow(*account);
    return entries_ == now.entries_;
  }
  std::vector<ChangeSet> sets;

 private:
  std::map<const LDGRAccount*, std::map<const LDGRAccountEntry*, std::string>> entries_;
};

// A ledger of two accounts, the second with a password, and one entry, schedule and summary each.
struct LedgerFixture : AccountsStoreFixture {
  LedgerFixture() {
    EXPECT_TRUE(store.Accounts_Load());
    for (const std::int32_t number : {1, 2}) {
      auto account = std::make_shared<LDGRAccount>();
      account->SetNumber(number);
      account->SetPassword("");
      account->SetName("Account " + std::to_string(number));
      AddEntries(*account, {{.number = account->NextAvailableNumber(), .amount = -5}});
      account->AddSchedule(std::make_shared<LDGRAccountSchedule>());
      store.AddAccount(account);
    }
    first = store.accounts()[0];
    second = store.accounts()[1];
    second->SetPassword("secret");
    second->setAuthenticated(true);
    EXPECT_TRUE(store.Accounts_Save());
    for (const auto& account : store.accounts()) mirror.Follow(*account);
    ledger.AddListener(mirror);
  }
  [[nodiscard]] std::string Bytes() const { return BytesOf(store.accounts()); }

  std::shared_ptr<LDGRAccount> first;
  std::shared_ptr<LDGRAccount> second;
  Mirror mirror;
  Ledger ledger{store};
  History& history = ledger.history();
};

}  // namespace tallyfold

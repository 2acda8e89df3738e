#include <gtest/gtest.h>

#include <functional>
#include <new>

#include "ledger/failing_memory.h"
#include "ledger/ledger_fixture.h"

namespace tallyfold {
namespace {

using ChangeOperation = std::function<void(LedgerFixture&, Change&)>;

// One of each thing that a change can do, with what it tells afterwards.
const struct {
  const char* what;
  ChangeOperation operate;
  ChangeKinds kinds;
  std::size_t inserted = 0;
  std::size_t removed = 0;
  std::size_t changed = 0;
} kOperations[] = {
    {"add", [](auto& f, Change& c) { c.Add(f.first, MakeEntry({.amount = 3})); },
     ChangeKind::Money | ChangeKind::Marks | ChangeKind::Texts, 1},
    {"add many",
     [](auto& f, Change& c) {
       c.Add(f.first, EntryList{MakeEntry({}), MakeEntry({})});
     },
     ChangeKind::Money | ChangeKind::Marks | ChangeKind::Texts, 2},
    {"remove",
     [](auto& f, Change& c) { EXPECT_TRUE(c.Remove(f.first, f.first->GetEntries()[0].get())); },
     ChangeKind::Money | ChangeKind::Marks | ChangeKind::Texts, 0, 1},
    {"remove what is not there",
     [](auto& f, Change& c) {
       EXPECT_FALSE(c.Remove(f.first, f.second->GetEntries()[0].get()));
       EXPECT_FALSE(c.Remove(f.first, f.second->GetSchedules()[0].get()));
     },
     {}},
    {"amount", [](auto& f, Change& c) { c.Edit(f.first, f.first->GetEntries()[0]).SetAmount(9); },
     ChangeKind::Money, 0, 0, 1},
    {"cleared",
     [](auto& f, Change& c) { c.Edit(f.first, f.first->GetEntries()[0]).SetCleared(true); },
     ChangeKind::Marks, 0, 0, 1},
    {"tax",
     [](auto& f, Change& c) { c.Edit(f.first, f.first->GetEntries()[0]).SetTaxDeductible(true); },
     ChangeKind::Marks, 0, 0, 1},
    {"text and back",
     [](auto& f, Change& c) {
       c.Edit(f.first, f.first->GetEntries()[0]).SetNotes("n");
       c.Edit(f.first, f.first->GetEntries()[0]).SetNotes("");
     },
     {}},
    {"link without the flag",
     [](auto& f, Change& c) { c.Edit(f.first, f.first->GetEntries()[0]).SetTransferEntry(7); },
     ChangeKind::Texts, 0, 0, 1},
    {"add and remove",
     [](auto& f, Change& c) {
       c.Add(f.first, MakeEntry({}));
       c.Remove(f.first, f.first->GetEntries().back().get());
     },
     {}},
    {"move to the end",
     [](auto& f, Change& c) {
       const auto entry = f.first->GetEntries()[0];
       c.Add(f.first, MakeEntry({}));
       c.Remove(f.first, entry.get());
       c.Add(f.first, entry);
     },
     ChangeKind::Money | ChangeKind::Marks | ChangeKind::Texts, 1, 0, 1},
    {"edit, then remove",
     [](auto& f, Change& c) {
       const auto entry = f.first->GetEntries()[0];
       c.Edit(f.first, entry).SetAmount(9);
       c.Remove(f.first, entry.get());
     },
     ChangeKind::Money | ChangeKind::Marks | ChangeKind::Texts, 0, 1},
    {"schedule",
     [](auto& f, Change& c) {
       c.Edit(f.first, f.first->GetSchedules()[0]).AddCommittedDate(20070301);
     },
     ChangeKind::Schedules},
    {"summary",
     [](auto& f, Change& c) { c.Edit(f.first, f.first->accountSummaries()[1]).setName("x"); },
     ChangeKind::Summaries},
    {"remove the selected summary",
     [](auto& f, Change& c) { c.Remove(f.first, f.first->selectedAccountSummary().get()); },
     ChangeKind::Summaries},
    {"type", [](auto& f, Change& c) { c.EditTypes(f.first).GetTypes()[0]->SetIsTransfer(true); },
     ChangeKind::Types},
    {"types",
     [](auto& f, Change& c) {
       LDGRAccount& account = c.EditTypes(f.first);
       account.SetDefaultDebitType(account.GetTypes()[1]);
       account.DeactivateType(account.GetTypes()[0]);
     },
     ChangeKind::Types},
    {"starting balance", [](auto& f, Change& c) { c.EditOptions(f.first).SetStartingBalance(8); },
     ChangeKind::Options | ChangeKind::Money},
    {"password taken away",
     [](auto& f, Change& c) { c.EditOptions(f.second).SetPassword(""); },
     {}},
    {"filter", [](auto& f, Change& c) { c.EditSettings(f.first).setEntryFilterType(4); },
     ChangeKind::Settings},
    {"number", [](auto& f, Change& c) { EXPECT_EQ(c.NextNumber(f.first), 2); },
     ChangeKind::Settings},
    {"account", [](auto&, Change& c) { c.AddAccount(std::make_shared<LDGRAccount>()); }, {}},
    {"remove account", [](auto& f, Change& c) { EXPECT_TRUE(c.RemoveAccount(f.second)); }, {}},
    {"an account that comes and goes",
     [](auto& /*f*/, Change& c) {
       const auto account = std::make_shared<LDGRAccount>();
       c.AddAccount(account);
       c.Add(account, MakeEntry({}));
       c.RemoveAccount(account);
     },
     {}},
    {"an account that moves",
     [](auto& f, Change& c) {
       const auto account = f.first;
       c.Add(account, MakeEntry({}));
       c.RemoveAccount(account);
       c.AddAccount(account);
     },
     ChangeKind::Money | ChangeKind::Marks | ChangeKind::Texts, 1},
    {"an account that moves and goes",
     [](auto& f, Change& c) {
       c.RemoveAccount(f.second);
       c.AddAccount(f.second);
       c.Add(f.second, MakeEntry({}));
       c.RemoveAccount(f.second);
     },
     {}},
    {"application password",
     [](auto& f, Change& c) {
       c.EditPassword();
       f.store.setPassword("p");
       f.store.setAuthenticated(false);
     },
     {}},
    {"nothing there",
     [](auto& f, Change& c) {
       c.Add(f.first, std::shared_ptr<LDGRAccountEntry>());
       c.Add(nullptr, MakeEntry({}));
       c.AddAccount(nullptr);
       EXPECT_FALSE(c.RemoveAccount(nullptr));
     },
     {}},
};

// Everything there is, settings and counters too.
std::string Everything(const LedgerFixture& f) {
  std::string all = f.store.password() + (f.store.authenticated() ? "!" : "?");
  for (const auto& account : f.store.accounts()) {
    all += plist::ToXml(account->asDictionary()) + (account->IsAuthenticated() ? '+' : '-');
    for (const auto& entry : account->GetEntries())
      all += std::to_string(entry->GetTransferEntry());
    for (const auto& type : account->GetTypes()) all += type->GetIsTransfer() ? '1' : '0';
    all += std::to_string(account->Revision()) + '/' + std::to_string(account->LedgerRevision());
  }
  return all + (f.store.HasUnsavedChanges() ? "unsaved" : "saved");
}

TEST(Change, TellsOnceWhatChanged) {
  for (const auto& c : kOperations) {
    LedgerFixture f;
    f.second->setAuthenticated(false);
    const std::uint64_t money = f.first->MoneyRevision();
    const std::uint64_t balances = f.first->LedgerRevision();
    Change change(f.ledger, "Name", f.first);
    c.operate(f, change);
    const ChangeSet set = change.Close();
    EXPECT_EQ(f.mirror.sets.size(), set.IsEmpty() ? 0U : 1U) << c.what;
    const AccountChanges* changes = set.Of(f.first.get());
    EXPECT_EQ(changes != nullptr ? changes->kinds : ChangeKinds(), c.kinds) << c.what;
    EXPECT_EQ(f.first->MoneyRevision() != money, c.kinds.HasAnyOf(ChangeKind::Money)) << c.what;
    EXPECT_EQ(f.first->LedgerRevision() != balances,
              c.kinds.HasAnyOf(ChangeKind::Money | ChangeKind::Marks))
        << c.what;
    if (changes != nullptr) {
      EXPECT_EQ(changes->entries.inserted.size(), c.inserted) << c.what;
      EXPECT_EQ(changes->entries.removed.size(), c.removed) << c.what;
      EXPECT_EQ(changes->entries.changed.size(), c.changed) << c.what;
    }
    EXPECT_TRUE(set.IsEmpty() || f.store.HasUnsavedChanges()) << c.what;
    EXPECT_TRUE(f.mirror.Equals(f.store.accounts())) << c.what;
  }
}

TEST(Change, LeavesNothingOfWhatIsNotClosed) {
  for (const auto& c : kOperations) {
    LedgerFixture f;
    f.second->setAuthenticated(false);
    const std::string before = Everything(f);
    {
      Change change(f.ledger, "Name", f.first);
      for (const auto& other : kOperations) {
        if (std::string_view(other.what) != "number") other.operate(f, change);
      }
    }
    {
      Change outer(f.ledger);
      Change inner(f.ledger, "Name", f.first);
      c.operate(f, inner);
      inner.Close();
    }
    {
      Change outer(f.ledger, "Name", f.first);
      Change inner(f.ledger);
      c.operate(f, inner);
    }
    EXPECT_EQ(Everything(f), before) << c.what;
    EXPECT_TRUE(f.mirror.sets.empty()) << c.what;
    EXPECT_EQ(f.history.WhyNotUndo(), History::Refusal::NothingThere) << c.what;
  }
}

// The default types and summaries of an account are made when they are first asked for.
TEST(Change, KeepsTypesAndSelectedSummaryThatNobodyAskedForBefore) {
  LedgerFixture f;
  const auto is_new = [](const LDGRAccount& account) {
    EXPECT_EQ(account.selectedAccountSummary(), account.accountSummaries().front());
    return account.asDictionary() == LDGRAccount().asDictionary();
  };
  const auto changed = std::make_shared<LDGRAccount>();
  {
    Change change(f.ledger, "Name", f.first);
    change.EditTypes(changed).SetTypes({});
    change.EditSettings(changed).selectAccountSummaryAtIndex(3);
  }
  EXPECT_TRUE(is_new(*changed));

  const auto summarized = std::make_shared<LDGRAccount>();
  {
    Change change(f.ledger, "Name", f.first);
    change.Remove(summarized, summarized->accountSummaries().front().get());
    change.Add(summarized, std::make_shared<LDGRAccountSummary>());
  }
  EXPECT_TRUE(is_new(*summarized));

  const auto untouched = std::make_shared<LDGRAccount>();
  Change idle(f.ledger, "Name", f.first);
  idle.EditTypes(untouched);
  idle.EditSettings(untouched);
  EXPECT_TRUE(idle.Close().IsEmpty());
  const auto undone = std::make_shared<LDGRAccount>();
  Change change(f.ledger, "Name", f.first);
  change.EditTypes(undone).SetTypes({});
  change.Close();
  EXPECT_TRUE(f.history.Undo());
  EXPECT_TRUE(is_new(*undone));
}

TEST(Change, LeavesNothingWhenMemoryRunsOut) {
  for (const auto& c : kOperations) {
    for (int successes = 0;; ++successes) {
      LedgerFixture f;
      const std::string before = Everything(f);
      bool has_failed = false;
      try {
        const FailingMemory memory(successes);
        Change change(f.ledger, "Name", f.first);
        c.operate(f, change);
        Change inner(f.ledger, "Name", f.first);
        kOperations[4].operate(f, inner);
        inner.Close();
        change.Close();
      } catch (const std::bad_alloc&) {
        has_failed = true;
      }
      if (!has_failed) break;
      // A listener that fails hears of a change that stands.
      if (f.mirror.sets.empty() && f.history.UndoLines().empty()) {
        EXPECT_EQ(Everything(f), before) << c.what << ' ' << successes;
      }
    }
  }
}

}  // namespace
}  // namespace tallyfold

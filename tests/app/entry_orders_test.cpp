#include "app/entries/entry_orders.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "app/accounts/account_selection.h"
#include "app/entries/entry_editing.h"
#include "app/entries/entry_removal.h"
#include "app/schedules/schedule_editing.h"
#include "app/shell/undo.h"
#include "app/test_application.h"
#include "ledger/ledger_fixture.h"
#include "ledger/transfer_links.h"
#include "model/entry_split.h"
#include "model/entry_type.h"

namespace tallyfold {
namespace {

using Texts = std::vector<std::string>;

// Account 1 "Here" is selected, account 2 is "There", 3 is "Third".
struct EntryOrdersTest : testing::Test, TestApplication {
  EntryOrdersTest() {
    here = AddAccount("Here");
    there = AddAccount("There");
    third = AddAccount("Third");
    app.selection().Account_Select(here);
  }
  // A debit of 5.00 of the first of March, changed like that and selected.
  std::shared_ptr<LDGRAccountEntry> Add(const std::function<void(LDGRAccountEntry&)>& change =
                                            [](LDGRAccountEntry&) {}) {
    auto entry = AddDebit(5.0);
    entry->SetDate(20040301);
    change(*entry);
    return entry;
  }
  [[nodiscard]] std::string Last(const LDGRAccount& account) const { return Lines(account).back(); }
  [[nodiscard]] std::string Bytes() { return BytesOf(app.desk().accounts()); }
  EntryOrders& orders = app.entryOrders();
  std::shared_ptr<LDGRAccount> here, there, third;
};

void AsCheck(LDGRAccountEntry& entry) {
  entry.SetIsCheck(true);
  entry.SetCheckNumber(101);
  entry.SetType(0);
}

void AsSplitDebit(LDGRAccountEntry& entry) {
  const auto split = std::make_shared<LDGRAccountEntrySplit>();
  split->SetDescription("Rent", 0);
  split->SetAmount(5.0, 0);
  entry.SetAmount(5.0);
  entry.SetSplit(split);
}

TEST_F(EntryOrdersTest, DuplicateKeepsWhatWasTypedButDayMarkAndNumbers) {
  const auto check = Add([](LDGRAccountEntry& entry) {
    AsCheck(entry);
    entry.SetCleared(true);
    entry.SetNotes("n");
  });
  EXPECT_TRUE(orders.Entry_Duplicate());
  EXPECT_EQ(Last(*here), "#2 20040307 debit -5.00 type=0 check=102 notes 'n'");
  EXPECT_EQ(app.desk().SelectedEntry(), here->GetEntries().back());

  Add(AsSplitDebit);
  EXPECT_TRUE(orders.Entry_Duplicate());
  EXPECT_EQ(Last(*here), "#4 20040307 debit 5.00 split(Rent,,5.00)");
  EXPECT_NE(here->GetEntries()[2]->GetSplit(), here->GetEntries()[3]->GetSplit());

  here->GetEntries()[1]->SetCheckNumber(2147483647);
  app.desk().SelectEntry(check);
  EXPECT_FALSE(orders.Entry_Duplicate());
  EXPECT_EQ(orders.State().problem, "There are no check numbers left.");
  EXPECT_EQ(here->GetEntries().size(), 4U);
}

TEST_F(EntryOrdersTest, DuplicateOfHalfATransferIsAPairOfItsOwn) {
  AddTransferTo(*there, 8.0);
  there->GetEntries().front()->SetNotes("theirs");
  // Also where the other account is locked.
  there->SetPassword("x");
  there->setAuthenticated(false);
  EXPECT_TRUE(orders.Entry_Duplicate());
  EXPECT_EQ(Last(*here), "#2 20040307 transfer -8.00 to 'There' ->2#2 origin");
  EXPECT_EQ(Last(*there), "#2 20040307 transfer 8.00 to 'Here' notes 'theirs' ->1#2");
}

TEST_F(EntryOrdersTest, ChangeKindTurnsTheMoneyRoundAndTellsWhatGaveWay) {
  const auto twin = std::make_shared<LDGRAccountEntryType>();
  twin->SetName("Debit Card");
  twin->SetNumber(9);
  twin->SetIsDeposit(true);
  here->AddType(twin);
  const struct {
    std::function<void(LDGRAccountEntry&)> given;
    std::string becomes;
    std::string note;
  } kCases[] = {
      {[](LDGRAccountEntry&) {}, "#1 20040301 deposit 5.00", ""},
      {[](LDGRAccountEntry& entry) { entry.SetAmount(0.0); }, "#2 20040301 deposit 0.00", ""},
      {AsCheck, "#3 20040301 deposit 5.00",
       "It is no longer check 101. It has no type any more: \"Check\" is of the other kind."},
      {[](LDGRAccountEntry& entry) { entry.SetType(1); }, "#4 20040301 deposit 5.00 type=9", ""},
      {[](LDGRAccountEntry& entry) { entry.SetType(77); }, "#5 20040301 deposit 5.00 type=77", ""},
      {AsSplitDebit, "#6 20040301 deposit 5.00 split(Rent,,5.00)", ""},
  };
  for (const auto& c : kCases) {
    const auto entry = Add(c.given);
    const double amount = entry->GetAmount();
    EXPECT_TRUE(orders.Entry_ChangeKind());
    EXPECT_EQ(Last(*here), c.becomes);
    EXPECT_EQ(entry->GetAmount(), -amount + 0.0);
    EXPECT_EQ(orders.State().note, c.note);
    EXPECT_TRUE(orders.Entry_ChangeKind());
    EXPECT_TRUE(entry->IsDebit() && entry->GetAmount() == amount) << Last(*here);
  }
  Add([](LDGRAccountEntry& entry) { entry.SetIsDeposit(true); });
  EXPECT_FALSE(orders.CanChangeKind() || orders.Entry_ChangeKind());

  AddTransferTo(*there, 8.0);
  EXPECT_TRUE(orders.Entry_ChangeKind());
  EXPECT_EQ(Last(*here), "#8 20040307 transfer 8.00 to 'There' ->2#1");
  EXPECT_EQ(Last(*there), "#1 20040307 transfer -8.00 to 'Here' ->1#8 origin");
}

TEST_F(EntryOrdersTest, MoveKeepsAllThatWasTyped) {
  const auto type = std::make_shared<LDGRAccountEntryType>();
  type->SetName("Odd");
  type->SetNumber(20);
  here->AddType(type);
  Add([](LDGRAccountEntry& entry) {
    AsCheck(entry);
    entry.SetCleared(true);
  });
  Add([](LDGRAccountEntry& entry) {
    AsSplitDebit(entry);
    entry.SetType(20);
  });
  Add([](LDGRAccountEntry& entry) { entry.SetType(20); });
  AddTransferTo(*third, 8.0);
  const EntryList entries = here->GetEntries();
  const std::string before = Bytes();
  EXPECT_TRUE(orders.MoveTo(entries, there->GetNumber()));
  EXPECT_TRUE(here->GetEntries().empty());
  EXPECT_EQ(Lines(*there), (Texts{"#1 20040301 debit -5.00 type=0 check=101 cleared",
                                  "#2 20040301 debit 5.00 type=6 split(Rent,,5.00)",
                                  "#3 20040301 debit -5.00 type=6",
                                  "#4 20040307 transfer -8.00 to 'Third' ->3#1 origin"}));
  EXPECT_EQ(Last(*third), "#1 20040307 transfer 8.00 to 'There' ->2#4");
  EXPECT_EQ(there->AccountEntryTypeForNumber(6)->GetName(), "Odd");
  EXPECT_EQ(orders.State().note, "New types of the account \"There\": Odd.");
  EXPECT_EQ(app.transferLinks().OtherHalf(*third, *third->GetEntries().front()),
            there->GetEntries().back());
  EXPECT_TRUE(app.undo().UndoStep());
  EXPECT_EQ(Bytes(), before);
  EXPECT_EQ(here->GetEntries(), entries);
}

TEST_F(EntryOrdersTest, MoveIsRefusedWholeWhereItCannotBe) {
  Add();
  AddTransferTo(*there, 8.0);
  const auto refused = [&](const EntryList& entries, std::int32_t account) {
    const std::string before = Bytes();
    EXPECT_FALSE(orders.MoveTo(entries, account));
    EXPECT_EQ(Bytes(), before);
    return orders.State().problem;
  };
  const EntryList all = here->GetEntries();
  EXPECT_EQ(refused(all, 2),
            "A transfer cannot be moved to the account \"There\", which has its other half.");
  EXPECT_EQ(refused(all, 1), "The entries are in that account already.");
  third->SetPassword("x");
  third->setAuthenticated(false);
  EXPECT_EQ(refused(all, 3), "The account \"Third\" is locked.");
  EXPECT_EQ(orders.AccountItems(), (std::vector<PopUpItem>{{"There", 2}}));
  refused(all, 77);
  refused({}, 2);
  refused(there->GetEntries(), 2);  // of another account
}

TEST_F(EntryOrdersTest, MarksAndTypesOfSeveralAreOneStep) {
  const auto first = Add();
  const auto second = Add();
  AddTransferTo(*there, 8.0);
  const EntryList all = here->GetEntries();
  const auto step = [this] { return app.undo().UndoLines().front().name; };
  EXPECT_TRUE(orders.SetCleared({first}, true));
  EXPECT_EQ(step(), "Resolve Entry");
  EXPECT_TRUE(orders.SetCleared(all, true));
  EXPECT_EQ(step(), "Resolve Entries");
  EXPECT_EQ(orders.State().entries.size(), 2U);  // the first had it
  EXPECT_FALSE(orders.SetCleared(all, true));
  EXPECT_TRUE(app.undo().UndoStep());
  EXPECT_TRUE(first->GetCleared() && !second->GetCleared());

  EXPECT_TRUE(orders.SetType(all, 1));
  EXPECT_EQ(orders.State().note, "1 entry of another kind stays as it is.");
  EXPECT_TRUE(first->GetType() == 1 && second->GetType() == 1 && all.back()->GetType() == -1);
  EXPECT_TRUE(orders.SetType(all, -1));
  EXPECT_FALSE(orders.SetType(all, 3));   // of deposits
  EXPECT_FALSE(orders.SetType(all, 77));  // of nobody
  EXPECT_EQ(first->GetType(), -1);
}

TEST_F(EntryOrdersTest, RemovalOfSeveralAsksOnceAndOnceForAllOtherHalves) {
  auto& removal = app.entryRemoval();
  Add();
  AddTransferTo(*there, 8.0);
  AddTransferTo(*third, 9.0);
  const std::string before = Bytes();
  const EntryList all = here->GetEntries();
  for (const bool keeps : {true, false}) {
    removal.EntriesRemoveConfirm_Begin(all);
    EXPECT_EQ(removal.Confirm().question,
              "Are you sure you would like to remove the 3 selected entries, -$22.00 in all?");
    removal.EntryRemoveConfirm_OK();
    EXPECT_EQ(removal.Transfer().question,
              "The other halves of 2 transfers are in other accounts.  Would you like to keep them "
              "there as ordinary entries?");
    keeps ? removal.TransferEntryRemoveConfirm_Yes() : removal.TransferEntryRemoveConfirm_No();
    EXPECT_TRUE(here->GetEntries().empty());
    EXPECT_EQ(Lines(*there), keeps ? Texts{"#1 20040307 transfer 8.00 to 'Here'"} : Texts{});
    EXPECT_EQ(third->GetEntries().size(), keeps ? 1U : 0U);
    EXPECT_TRUE(app.undo().UndoStep());
    EXPECT_EQ(Bytes(), before);
  }
  removal.EntriesRemoveConfirm_Begin(all);
  removal.EntryRemoveConfirm_OK();
  removal.TransferEntryRemoveConfirm_Cancel();
  EXPECT_EQ(Bytes(), before);
  removal.EntriesRemoveConfirm_Begin(there->GetEntries());
  EXPECT_FALSE(removal.Confirm().is_open);
}

TEST_F(EntryOrdersTest, AScheduleMadeOfAnEntryDoesNotOfferThatEntryAgain) {
  Add(AsCheck);
  auto& sheet = app.scheduleSheet();
  for (const DateNumber start : {20040301, 20040201}) {
    EXPECT_TRUE(sheet.NewFromEntry());
    auto typed = sheet.State().typed;
    EXPECT_TRUE(typed.is_check && typed.start == 20040301 && typed.amount == 5.0);
    typed.start = start;
    sheet.Read(typed);
    EXPECT_TRUE(sheet.OK());
    const auto& schedule = *here->GetSchedules().back();
    EXPECT_EQ(schedule.NextEntryDate(), start == 20040301 ? 20040401 : 20040201);
  }
}

}  // namespace
}  // namespace tallyfold

#include <gtest/gtest.h>

#include <functional>

#include "app/accounts/account_selection.h"
#include "app/desk.h"
#include "app/entries/entry_editing.h"
#include "app/entries/entry_removal.h"
#include "app/face/sheet_slot.h"
#include "app/test_application.h"
#include "ledger/transfer_links.h"

namespace tallyfold {
namespace {

using Texts = std::vector<std::string>;

// Accounts A, B and C with the numbers 1, 2 and 3; A is selected.
struct ThreeAccounts : TestApplication {
  ThreeAccounts() : a(AddAccount("A")), b(AddAccount("B")), c(AddAccount("C")) {
    app.selection().Account_Select(a);
  }

  // Edits the selected transfer in its sheet.
  bool Edit(const std::function<void(TransferSheetState::Typed&)>& change) {
    if (!app.entries().Entry_Edit()) return false;
    auto typed = app.entries().Transfer().State().typed;
    change(typed);
    app.entries().Transfer().Read(typed);
    return app.entries().Transfer().OK();
  }
  bool EditAccount(const std::string& name) {
    return Edit([this, &name](auto& typed) {
      typed.account = IndexOf(app.entries().Transfer().State().account_items, name);
    });
  }
  void Select(const std::shared_ptr<LDGRAccount>& account, std::size_t row) {
    app.selection().Account_Select(account);
    app.desk().SelectEntry(account->GetEntries().at(row));
  }

  std::shared_ptr<LDGRAccount> a;
  std::shared_ptr<LDGRAccount> b;
  std::shared_ptr<LDGRAccount> c;
};

// Two transfers of 1.00 and 2.00 from B to C whose halves all lack numbers.
void MakeTwoWithoutNumbers(ThreeAccounts& test) {
  for (const double amount : {1.0, 2.0}) {
    test.app.selection().Account_Select(test.a);
    test.AddTransferTo(*test.b, amount);
    test.EditAccount("C");
    test.Select(test.c, test.c->GetEntries().size() - 1);
    test.EditAccount("B");
  }
}

TEST(Transfers, KeepBothHalvesInLine) {
  struct Case {
    const char* what;
    std::function<void(ThreeAccounts&)> act;
    Texts a;
    Texts b;
    Texts c;
  } const cases[] = {
      {"halves without numbers are told apart by what they point to",
       [](auto& t) {
         for (const double amount : {1.0, 2.0}) {
           t.AddTransferTo(*t.b, amount);
           t.EditAccount("C");
         }
         t.Select(t.a, 1);
         t.Edit([](auto& typed) { typed.amount = 7.0; });
       },
       {"#1 20040307 transfer -1.00 to 'C' ->3#-1 origin",
        "#2 20040307 transfer -7.00 to 'C' ->3#-1 origin"},
       {},
       {"#-1 20040307 transfer 1.00 to 'A' ->1#1", "#-1 20040307 transfer 7.00 to 'A' ->1#2"}},
      {"halves that both lack numbers are told apart by the amount before the edit, equals in "
       "order",
       [](auto& t) {
         MakeTwoWithoutNumbers(t);
         t.Select(t.c, 1);
         t.Edit([](auto& typed) { typed.amount = 1.0; });
         t.Edit([](auto& typed) { typed.amount = 7.0; });
       },
       {},
       {"#-1 20040307 transfer -7.00 to 'C' ->3#-1 origin",
        "#-1 20040307 transfer -1.00 to 'C' ->3#-1 origin"},
       {"#-1 20040307 transfer 1.00 to 'B' ->2#-1", "#-1 20040307 transfer 7.00 to 'B' ->2#-1"}},
      {"and so they move on and are removed",
       [](auto& t) {
         MakeTwoWithoutNumbers(t);
         t.Select(t.c, 1);
         t.EditAccount("A");
         t.AddTransferTo(*t.b, 3.0);
         t.Edit([](auto& typed) { typed.amount = 4.0; });
         t.app.entryRemoval().EntryRemoveConfirm_Begin();
         t.app.entryRemoval().EntryRemoveConfirm_OK();
         t.app.entryRemoval().TransferEntryRemoveConfirm_No();
       },
       {"#-1 20040307 transfer -2.00 to 'C' ->3#-1 origin"},
       {"#-1 20040307 transfer -1.00 to 'C' ->3#-1 origin"},
       {"#-1 20040307 transfer 1.00 to 'B' ->2#-1", "#-1 20040307 transfer 2.00 to 'A' ->1#-1"}},
      {"a missing other half is not made again",
       [](auto& t) {
         t.AddTransferTo(*t.b, 9.5);
         t.b->RemoveEntry(t.b->GetEntries()[0].get());
         t.Edit([](auto& typed) { typed.amount = 1.0; });
       },
       {"#1 20040307 transfer -1.00 to 'B' ->2#1 origin"},
       {},
       {}},
      {"an account that goes while the sheet is open",
       [](auto& t) {
         t.AddTransferTo(*t.b, 9.5);
         t.app.entries().Entry_Edit();
         auto typed = t.app.entries().Transfer().State().typed;
         typed.account = 1;
         t.app.entries().Transfer().Read(typed);
         t.c->SetNumber(99);
         t.app.entries().Transfer().OK();
       },
       {"#1 20040307 transfer -9.50 to 'C' ->3#1 origin"},
       {},
       {}},
  };
  for (const Case& c : cases) {
    ThreeAccounts test;
    c.act(test);
    EXPECT_EQ(Lines(*test.a), c.a) << c.what;
    EXPECT_EQ(Lines(*test.b), c.b) << c.what;
    EXPECT_EQ(Lines(*test.c), c.c) << c.what;
  }
}

TEST(Transfers, OfferTheOtherAccountsAndRememberTheChoice) {
  ThreeAccounts test;
  auto& app = test.app;
  test.AddTransferTo(*test.c, 1.0);
  app.entries().New(EntryKind::Transfer);
  const auto& state = app.entries().Transfer().State();
  EXPECT_EQ(state.account_items, (std::vector<PopUpItem>{{"B", 2}, {"C", 3}}));
  EXPECT_EQ(state.typed.account, 1);
  auto typed = state.typed;
  typed.account = 7;
  app.entries().Transfer().Read(typed);
  EXPECT_FALSE(app.entries().Transfer().OK());
  EXPECT_EQ(TextOf(state.problem), "No account is chosen.");
  app.entries().Transfer().Cancel();

  // The last account is gone: the first is offered.
  test.a->setLastTransferAccount(77);
  app.entries().New(EntryKind::Transfer);
  EXPECT_EQ(state.typed.account, 0);
  EXPECT_EQ(state.account_items.size(), 2U);
}

TEST(Transfers, WithoutAnotherAccountHaveNoOtherHalf) {
  TestApplication test;
  const auto account = test.AddAccount("A");
  test.app.entries().New(EntryKind::Transfer);
  EXPECT_TRUE(test.app.entries().Transfer().OK());
  EXPECT_EQ(Lines(*account), Texts{"#1 20040307 transfer 0.00 origin"});
}

TEST(TransferLinks, LeadToTheOtherHalfOrNowhere) {
  ThreeAccounts test;
  const auto half = test.AddTransferTo(*test.b, 9.5);
  EXPECT_EQ(test.app.transferLinks().Transfer_LinkedEntry(half.get()), test.b->GetEntries()[0]);
  EXPECT_EQ(test.app.transferLinks().Transfer_LinkedEntry(nullptr), nullptr);

  const std::function<void()> breaks[] = {
      [&half] { half->SetIsTransfer(false); },
      [&half] { half->SetTransferAccount(77); },
      [&half] { half->SetTransferEntry(77); },
      [&half] { half->SetTransferEntry(-1); },
      // Linked to itself.
      [&half] {
        half->SetTransferAccount(1);
        half->SetTransferEntry(half->GetNumber());
      },
  };
  for (const auto& break_link : breaks) {
    break_link();
    EXPECT_EQ(test.app.transferLinks().Transfer_LinkedEntry(half.get()), nullptr) << Line(*half);
    half->SetIsTransfer(true);
    half->SetTransferAccount(2);
    half->SetTransferEntry(1);
  }
}

TEST(TransferLinks, ChooseAmongEntriesOfOneNumber) {
  // An entry of B; `entry` and `account` are what it points to, both 0 for an ordinary entry.
  struct Half {
    std::int32_t number;
    std::int32_t entry;
    std::int32_t account;
    double amount;
    DateNumber date;
    const char* description;
  };
  struct Case {
    const char* what;
    std::int32_t wanted;  // of the transfer #5 in A: -10.00 on 20040307, "Rent"
    std::vector<Half> halves;
    std::int32_t expected;  // index, or -1 for none
    bool is_ambiguous = false;
  } const cases[] = {
      {"one that points back, whatever it holds",
       3,
       {{3, 0, 0, 10.0, 20040307, "Rent"}, {3, 5, 1, 99.0, 20010101, ""}},
       1},
      {"also without a number", -1, {{-1, 4, 1, 10, 20040307, "Rent"}, {-1, 5, 1, 9, 0, ""}}, 1},
      {"none that points back: the first of the number",
       3,
       {{3, 6, 1, 10, 20040307, "Rent"}, {3, 5, 3, 10, 20040307, "Rent"}},
       0},
      {"but no stranger without one", -1, {{-1, 6, 1, 10, 20040307, "Rent"}}, -1},
      {"the mirrored amount before all else",
       -1,
       {{-1, 5, 1, -10, 20040307, "Rent"}, {-1, 5, 1, 10, 20010101, ""}},
       1},
      {"then the date",
       3,
       {{3, 5, 1, 10, 20040306, "Rent"},
        {3, 5, 1, 10, 20040307, ""},
        {3, 5, 1, 9, 20040307, "Rent"}},
       1},
      {"then the description, where no date is the same",
       3,
       {{3, 5, 1, 10, 20040306, ""}, {3, 5, 1, 10, 20040305, "Rent"}},
       1},
      {"of equals the first",
       -1,
       {{-1, 5, 1, 9, 0, ""}, {-1, 5, 1, 10, 20040307, "Rent"}, {-1, 5, 1, 10, 20040307, "Rent"}},
       1},
      {"no mirrored amount",
       -1,
       {{-1, 5, 1, 9, 20040307, "Rent"}, {-1, 5, 1, -10, 20040307, "Rent"}},
       -1,
       true},
  };
  for (const Case& c : cases) {
    ThreeAccounts test;
    const auto entry = std::make_shared<LDGRAccountEntry>();
    const auto fill = [](LDGRAccountEntry& half, const Half& values) {
      half.SetNumber(values.number);
      half.SetIsTransfer(values.account != 0);
      half.SetTransferEntry(values.entry);
      half.SetTransferAccount(values.account);
      half.SetAmount(values.amount);
      half.SetDate(values.date);
      half.SetDescription(values.description);
    };
    fill(*entry, {5, c.wanted, 2, -10.0, 20040307, "Rent"});
    test.a->AddEntry(entry);
    for (const Half& values : c.halves) {
      test.b->AddEntry(std::make_shared<LDGRAccountEntry>());
      fill(*test.b->GetEntries().back(), values);
    }
    const auto& entries = test.b->GetEntries();
    const auto half = test.app.transferLinks().Transfer_LinkedEntry(entry.get());
    EXPECT_EQ(half, c.expected < 0 ? nullptr : entries[static_cast<std::size_t>(c.expected)])
        << c.what;
    const auto found = test.app.transferLinks().FindOtherHalves(*test.a, {entry});
    EXPECT_TRUE(found[0].half == half && found[0].is_ambiguous == c.is_ambiguous) << c.what;

    const Texts before = Lines(*test.b);
    test.Select(test.a, 0);
    test.app.entries().Entry_Edit();
    EXPECT_EQ(!test.app.entries().Transfer().State().note.empty(), c.is_ambiguous) << c.what;
    test.app.entries().Transfer().OK();
    EXPECT_EQ(Lines(*test.b) == before, half == nullptr) << c.what;
    if (!c.is_ambiguous) continue;
    test.app.desk().preferences().SetEntryRemoveConfirm(false);
    test.app.entryRemoval().EntryRemoveConfirm_Begin();
    EXPECT_TRUE(test.a->GetEntries().empty());
    EXPECT_EQ(Lines(*test.b), before);
    EXPECT_EQ(test.app.entryRemoval().Confirm().note,
              "Several entries of the account \"B\" could be the other half of this transfer, and "
              "none has its amount; they stay as they are.");
  }
}

TEST(Removals, RemoveWhatTheyAskedAbout) {
  ThreeAccounts test;
  auto& app = test.app;
  const auto stays = test.AddDebit(1.0);
  test.AddTransferTo(*test.b, 9.5);
  app.entryRemoval().EntryRemoveConfirm_Begin();
  app.desk().SelectEntry(stays);
  app.entryRemoval().EntryRemoveConfirm_OK();
  EXPECT_EQ(app.sheets().Current(), Sheet::TransferEntryRemoveConfirm);
  app.desk().SelectEntry(stays);
  app.entryRemoval().TransferEntryRemoveConfirm_No();
  EXPECT_EQ(test.a->GetEntries(), EntryList{stays});
  EXPECT_TRUE(test.b->GetEntries().empty());

  app.entryRemoval().EntryRemoveConfirm_Begin();
  test.a->RemoveEntry(stays.get());
  test.a->AddEntry(std::make_shared<LDGRAccountEntry>());
  app.selection().Account_Select(test.b);
  app.selection().Account_Select(test.a);
  app.desk().SelectEntry(test.a->GetEntries()[0]);
  EXPECT_FALSE(app.entryRemoval().EntryRemoveConfirm_OK());
  EXPECT_EQ(test.a->GetEntries().size(), 1U);
  EXPECT_EQ(TextOf(app.entryRemoval().Confirm().problem), "The entry has been removed.");
}

}  // namespace
}  // namespace tallyfold

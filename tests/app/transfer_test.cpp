#include <gtest/gtest.h>

#include <functional>

#include "app/test_application.h"

namespace tallyfold {
namespace {

using Texts = std::vector<std::string>;

// Accounts A, B and C with the numbers 1, 2 and 3; A is selected.
struct ThreeAccounts : TestApplication {
  ThreeAccounts() : a(AddAccount("A")), b(AddAccount("B")), c(AddAccount("C")) {
    app.Account_Select(a);
  }

  // Edits the selected transfer in its sheet.
  bool Edit(const std::function<void(TransferSheetState::Typed&)>& change) {
    if (!app.Entry_Edit()) return false;
    auto typed = app.TransferSheet().typed;
    change(typed);
    app.TransferSheet_Read(typed);
    return app.TransferSheet_OK();
  }
  bool EditAccount(const std::string& name) {
    return Edit([this, &name](auto& typed) {
      typed.account = IndexOf(app.TransferSheet().account_items, name);
    });
  }
  void Select(const std::shared_ptr<LDGRAccount>& account, std::size_t row) {
    app.Account_Select(account);
    app.SelectEntry(account->GetEntries().at(row));
  }

  std::shared_ptr<LDGRAccount> a;
  std::shared_ptr<LDGRAccount> b;
  std::shared_ptr<LDGRAccount> c;
};

TEST(Transfers, KeepBothHalvesInLine) {
  struct Case {
    const char* what;
    std::function<void(ThreeAccounts&)> act;
    Texts a;
    Texts b;
    Texts c;
  } const cases[] = {
      {"a new one",
       [](auto& t) { t.AddTransferTo(*t.b, 9.5); },
       {"#1 20040307 transfer -9.50 to 'B' ->2#1 origin"},
       {"#1 20040307 transfer 9.50 to 'A' ->1#1"},
       {}},
      {"a new one the other way round",
       [](auto& t) {
         t.app.Entry_Transfer();
         auto typed = t.app.TransferSheet().typed;
         typed.direction = 1;
         typed.account = 1;
         typed.amount = 4.0;
         typed.date = 20040102;
         typed.description = "Back";
         typed.notes = "n";
         typed.cleared = true;
         t.app.TransferSheet_Read(typed);
         t.app.TransferSheet_OK();
       },
       {"#1 20040102 transfer 4.00 'Back' to 'C' cleared notes 'n' ->3#1"},
       {},
       {"#1 20040102 transfer -4.00 'Back' to 'A' ->1#1 origin"}},
      {"an edit with the same account keeps the other half and its own marks",
       [](auto& t) {
         t.AddTransferTo(*t.b, 9.5);
         t.b->GetEntries()[0]->SetCleared(true);
         t.Edit([](auto& typed) {
           typed.direction = 1;
           typed.amount = 3.0;
           typed.date = 20040101;
           typed.description = "New";
         });
       },
       {"#1 20040101 transfer 3.00 'New' to 'B' ->2#1"},
       {"#1 20040101 transfer -3.00 'New' to 'A' cleared ->1#1 origin"},
       {}},
      {"an edit with another account replaces the other half by one without a number",
       [](auto& t) {
         t.AddTransferTo(*t.b, 9.5);
         t.EditAccount("C");
       },
       {"#1 20040307 transfer -9.50 to 'C' ->3#-1 origin"},
       {},
       {"#-1 20040307 transfer 9.50 to 'A' ->1#1"}},
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
      {"and so they move on",
       [](auto& t) {
         for (const double amount : {1.0, 2.0}) {
           t.AddTransferTo(*t.b, amount);
           t.EditAccount("C");
         }
         t.Select(t.a, 1);
         t.EditAccount("B");
       },
       {"#1 20040307 transfer -1.00 to 'C' ->3#-1 origin",
        "#2 20040307 transfer -2.00 to 'B' ->2#-1 origin"},
       {"#-1 20040307 transfer 2.00 to 'A' ->1#2"},
       {"#-1 20040307 transfer 1.00 to 'A' ->1#1"}},
      {"a half whose number is not unique is the one that points back",
       [](auto& t) {
         auto stranger = std::make_shared<LDGRAccountEntry>();
         stranger->SetNumber(1);
         stranger->SetIsDebit(true);
         t.b->AddEntry(stranger);
         t.AddTransferTo(*t.b, 9.5);
         t.Edit([](auto& typed) { typed.amount = 1.0; });
       },
       {"#1 20040307 transfer -1.00 to 'B' ->2#1 origin"},
       {"#1 0 debit 0.00", "#1 20040307 transfer 1.00 to 'A' ->1#1"},
       {}},
      {"a missing other half is not made again",
       [](auto& t) {
         t.AddTransferTo(*t.b, 9.5);
         t.b->RemoveEntry(t.b->GetEntries()[0].get());
         t.Edit([](auto& typed) { typed.amount = 1.0; });
       },
       {"#1 20040307 transfer -1.00 to 'B' ->2#1 origin"},
       {},
       {}},
      {"an account that is gone keeps its name",
       [](auto& t) {
         t.AddTransferTo(*t.b, 9.5);
         t.app.SelectedEntry()->SetTransferAccount(77);
         t.Edit([](auto& typed) { typed.amount = 1.0; });
       },
       {"#1 20040307 transfer -1.00 to 'B' ->77#1 origin"},
       {"#1 20040307 transfer 9.50 to 'A' ->1#1"},
       {}},
      {"an account that goes while the sheet is open",
       [](auto& t) {
         t.AddTransferTo(*t.b, 9.5);
         t.app.Entry_Edit();
         auto typed = t.app.TransferSheet().typed;
         typed.account = 1;
         t.app.TransferSheet_Read(typed);
         t.c->SetNumber(99);
         t.app.TransferSheet_OK();
       },
       {"#1 20040307 transfer -9.50 to 'C' ->3#1 origin"},
       {},
       {}},
      {"a locked account's half follows",
       [](auto& t) {
         t.AddTransferTo(*t.b, 9.5);
         t.b->SetPassword("secret");
         t.b->setAuthenticated(false);
         t.Edit([](auto& typed) { typed.amount = 1.0; });
       },
       {"#1 20040307 transfer -1.00 to 'B' ->2#1 origin"},
       {"#1 20040307 transfer 1.00 to 'A' ->1#1"},
       {}},
      {"an edit from the other side",
       [](auto& t) {
         t.AddTransferTo(*t.b, 9.5);
         t.Select(t.b, 0);
         t.Edit([](auto& typed) { typed.description = "Seen"; });
       },
       {"#1 20040307 transfer -9.50 'Seen' to 'B' ->2#1 origin"},
       {"#1 20040307 transfer 9.50 'Seen' to 'A' ->1#1"},
       {}},
      {"a cancelled sheet",
       [](auto& t) {
         t.app.Entry_Transfer();
         t.app.TransferSheet_Cancel();
       },
       {},
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
  EXPECT_EQ(test.a->lastTransferAccount(), 3);
  EXPECT_TRUE(test.a->isLastTransferOrigin());

  app.Entry_Transfer();
  const auto& state = app.TransferSheet();
  EXPECT_EQ(state.account_items, (std::vector<PopUpItem>{{"B", 2}, {"C", 3}}));
  EXPECT_EQ(state.typed.account, 1);
  EXPECT_EQ(state.direction_items, (std::vector<PopUpItem>{{"Transfer To", kTransferToTag},
                                                           {"Transfer From", kTransferFromTag}}));
  auto typed = state.typed;
  typed.account = 7;
  app.TransferSheet_Read(typed);
  EXPECT_FALSE(app.TransferSheet_OK());
  EXPECT_EQ(state.problem, "No account is chosen.");
  app.TransferSheet_Cancel();

  // The last account is gone: the first is offered.
  test.a->setLastTransferAccount(77);
  app.Entry_Transfer();
  EXPECT_EQ(app.TransferSheet().typed.account, 0);
  EXPECT_EQ(app.TransferSheet().account_items.size(), 2U);
}

TEST(Transfers, WithoutAnotherAccountHaveNoOtherHalf) {
  TestApplication test;
  const auto account = test.AddAccount("A");
  test.app.Entry_Transfer();
  EXPECT_TRUE(test.app.TransferSheet().account_items.empty());
  EXPECT_TRUE(test.app.TransferSheet_OK());
  EXPECT_EQ(Lines(*account), Texts{"#1 20040307 transfer 0.00 origin"});
}

TEST(TransferLinks, LeadToTheOtherHalfOrNowhere) {
  ThreeAccounts test;
  const auto half = test.AddTransferTo(*test.b, 9.5);
  EXPECT_EQ(test.app.Transfer_LinkedEntry(half.get()), test.b->GetEntries()[0]);
  EXPECT_EQ(test.app.Transfer_LinkedEntry(nullptr), nullptr);

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
    EXPECT_EQ(test.app.Transfer_LinkedEntry(half.get()), nullptr) << Line(*half);
    half->SetIsTransfer(true);
    half->SetTransferAccount(2);
    half->SetTransferEntry(1);
  }
}

TEST(TransferLinks, FollowTheNamesOfAccounts) {
  ThreeAccounts test;
  test.AddTransferTo(*test.b, 9.5);
  test.AddTransferTo(*test.c, 1.0)->SetTransferAccount(77);
  const auto before = test.c->Revision();
  test.b->SetName("Savings");
  test.app.Account_Edit();
  auto typed = test.app.AccountEditSheet().typed;
  typed.name = "House";
  test.app.AccountEditSheet_Read(typed);
  EXPECT_TRUE(test.app.AccountEditSheet_OK());
  EXPECT_EQ(test.a->GetEntries()[0]->GetToFrom(), "Savings");
  EXPECT_EQ(test.a->GetEntries()[1]->GetToFrom(), "C");
  EXPECT_EQ(test.b->GetEntries()[0]->GetToFrom(), "House");
  EXPECT_GT(test.c->Revision(), before);
}

TEST(Removals, AskWhatAppliesAndTreatTheOtherHalf) {
  enum class Answer { OK, Cancel, Yes, No };
  struct Case {
    const char* what;
    bool confirm;
    bool is_transfer;
    std::vector<Answer> answers;
    std::size_t left;
    Texts other;
  };
  const std::string whole = "#1 20040307 transfer 9.50 to 'A' ->1#1";
  const std::string unlinked = "#1 20040307 transfer 9.50 to 'A'";
  const Case cases[] = {
      {"an entry", true, false, {Answer::OK}, 0, {}},
      {"an entry, cancelled", true, false, {Answer::Cancel}, 1, {}},
      {"an entry without a question", false, false, {}, 0, {}},
      {"a transfer, other half stays", true, true, {Answer::OK, Answer::Yes}, 0, {unlinked}},
      {"a transfer, other half goes", true, true, {Answer::OK, Answer::No}, 0, {}},
      {"a transfer, cancelled late", true, true, {Answer::OK, Answer::Cancel}, 1, {whole}},
      {"a transfer, cancelled at once", true, true, {Answer::Cancel}, 1, {whole}},
      {"a transfer with one question", false, true, {Answer::Yes}, 0, {unlinked}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    ThreeAccounts test;
    auto& app = test.app;
    app.preferences().SetEntryRemoveConfirm(c.confirm);
    c.is_transfer ? test.AddTransferTo(*test.b, 9.5) : test.AddDebit(9.5);
    app.EntryRemoveConfirm_Begin();
    for (const Answer answer : c.answers) {
      const bool is_first = app.OpenSheet() == Sheet::EntryRemoveConfirm;
      EXPECT_EQ(is_first ? app.EntryRemoveSheet().is_open : app.TransferEntryRemoveSheet().is_open,
                true);
      switch (answer) {
        case Answer::OK:
          app.EntryRemoveConfirm_OK();
          break;
        case Answer::Cancel:
          is_first ? app.EntryRemoveConfirm_Cancel() : app.TransferEntryRemoveConfirm_Cancel();
          break;
        case Answer::Yes:
          app.TransferEntryRemoveConfirm_Yes();
          break;
        case Answer::No:
          app.TransferEntryRemoveConfirm_No();
          break;
      }
    }
    EXPECT_EQ(app.OpenSheet(), Sheet::None);
    EXPECT_EQ(test.a->GetEntries().size(), c.left);
    EXPECT_EQ(app.SelectedEntry() != nullptr, c.left == 1);
    EXPECT_EQ(Lines(*test.b), c.other);
  }
}

TEST(Removals, DoNothingWithoutASelectedEntry) {
  ThreeAccounts test;
  test.app.EntryRemoveConfirm_Begin();
  EXPECT_EQ(test.app.OpenSheet(), Sheet::None);
  test.AddDebit(1.0);
  test.app.SelectEntry(nullptr);
  test.app.EntryRemoveConfirm_Begin();
  test.app.EntryRemoveConfirm_OK();
  test.app.TransferEntryRemoveConfirm_No();
  test.app.Entry_Delete();
  EXPECT_EQ(test.a->GetEntries().size(), 1U);
}

TEST(Removals, OfATransferWhoseAccountIsGoneTakeItAlone) {
  ThreeAccounts test;
  test.AddTransferTo(*test.b, 9.5)->SetTransferAccount(77);
  test.app.EntryRemoveConfirm_Begin();
  test.app.EntryRemoveConfirm_OK();
  EXPECT_EQ(test.app.OpenSheet(), Sheet::None);
  EXPECT_TRUE(test.a->GetEntries().empty());
  EXPECT_EQ(test.b->GetEntries().size(), 1U);
}

TEST(HiddenEntries, AreToldOfAndCanBeShown) {
  struct Case {
    const char* what;
    bool live;
    std::int32_t filter;
    DateNumber date;
    const char* text;
  } const cases[] = {
      {"within the filter", false, 31, 20040301, ""},
      {"outside of it", false, 31, 20040229, "Added; hidden by the filter 'This Month'"},
      {"outside of a filter that gives way", true, 31, 20040229, ""},
      {"a search", false, 13, 20040301, "Added; hidden by the filter 'Notes'"},
  };
  for (const Case& c : cases) {
    ThreeAccounts test;
    auto& app = test.app;
    app.preferences().SetLiveUpdatingFilters(c.live);
    app.Filter_Select(c.filter);
    if (c.filter == 13) app.Search_Field("wanted");
    app.Entry_Debit();
    auto typed = app.DebitSheet().typed;
    typed.date = c.date;
    app.DebitSheet_Read(typed);
    app.DebitSheet_OK();
    EXPECT_EQ(app.HiddenEntry().text, c.text) << c.what;
    if (*c.text == 0) continue;
    app.SelectEntry(nullptr);
    app.ShowHiddenEntry();
    EXPECT_EQ(app.HiddenEntry().text, "") << c.what;
    EXPECT_EQ(test.a->entryFilterType(), 0) << c.what;
    EXPECT_EQ(app.SelectedEntry(), test.a->GetEntries().back()) << c.what;
  }
}

TEST(OtherHalves, AreShownInTheirAccount) {
  ThreeAccounts test;
  auto& app = test.app;
  const auto half = test.AddTransferTo(*test.b, 9.5);
  test.b->setEntryFilterType(13);
  test.b->setEntryFilterData("wanted");
  EXPECT_TRUE(app.ShowOtherHalf());
  EXPECT_EQ(app.SelectedAccount(), test.b);
  EXPECT_EQ(app.SelectedEntry(), nullptr);
  EXPECT_EQ(app.HiddenEntry().text, "Hidden by the filter 'Notes'");
  app.ShowHiddenEntry();
  EXPECT_EQ(app.SelectedEntry(), test.b->GetEntries()[0]);
  EXPECT_TRUE(app.ShowOtherHalf());
  EXPECT_EQ(app.SelectedEntry(), half);
  EXPECT_EQ(app.HiddenEntry().text, "");

  test.b->SetPassword("key");
  test.b->setAuthenticated(false);
  EXPECT_FALSE(app.ShowOtherHalf());
  EXPECT_EQ(app.OpenSheet(), Sheet::AccountAuthentication);
  app.AccountAuthenticationSheet_Cancel();
  EXPECT_FALSE(app.ShowOtherHalf());  // coming back has selected no entry
}

}  // namespace
}  // namespace tallyfold

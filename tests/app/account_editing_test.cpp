#include "app/accounts/account_editing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "app/accounts/account_removal.h"
#include "app/accounts/account_selection.h"
#include "app/accounts/account_type_rows.h"
#include "app/accounts/accounts_drawer.h"
#include "app/desk.h"
#include "app/entries/entry_editing.h"
#include "app/shell/menus.h"
#include "app/shell/undo.h"
#include "app/test_application.h"
#include "model/entry_type.h"
#include "registers/table_log.h"

namespace tallyfold {
namespace {

using Texts = std::vector<std::string>;
using TypedAccount = AccountEditSheetState::Typed;

bool Edit(TestApplication& test, const std::function<void(TypedAccount&)>& change) {
  if (!test.app.accountSheet().Account_Edit()) return false;
  TypedAccount typed = test.app.accountSheet().State().typed;
  change(typed);
  test.app.accountSheet().Read(typed);
  return test.app.accountSheet().AccountEditSheet_OK();
}

Texts TypeNames(const EntryTypeList& types) {
  Texts names;
  for (const auto& type : types) {
    names.push_back(std::to_string(type->GetNumber()) + " " + type->GetName());
  }
  return names;
}

TEST(AccountSheet, CannotBeStoredUntilEverythingIsRight) {
  struct Case {
    const char* what;
    std::function<void(TypedAccount&)> change;
    bool is_right;
  } const cases[] = {
      {"nothing", [](TypedAccount&) {}, true},
      {"no name", [](TypedAccount& t) { t.name = ""; }, false},
      {"a blank name", [](TypedAccount& t) { t.name = " \t"; }, false},
      {"no balance", [](TypedAccount& t) { t.starting_balance.reset(); }, false},
      {"a balance without end", [](TypedAccount& t) { t.starting_balance = 1.0 / 0.0; }, false},
      {"no check number", [](TypedAccount& t) { t.starting_check_number.reset(); }, false},
      {"a negative check number", [](TypedAccount& t) { t.starting_check_number = -1; }, false},
      {"one password", [](TypedAccount& t) { t.password = "x"; }, false},
      {"another case", [](TypedAccount& t) { t.password = "x", t.password_again = "X"; }, false},
      {"a password", [](TypedAccount& t) { t.password = t.password_again = "x"; }, true},
      {"a type without a name", [](TypedAccount& t) { t.types[0].name = ""; }, false},
      {"a type twice", [](TypedAccount& t) { t.types[0].name = t.types[1].name; }, false},
      {"a type twice, one out of use",
       [](TypedAccount& t) { t.types[0].name = t.types[1].name, t.types[1].is_active = false; },
       true},
      {"a type of each kind", [](TypedAccount& t) { t.types[0].name = t.types[3].name; }, true},
      {"no types", [](TypedAccount& t) { t.types.clear(); }, true},
      {"fewer than no texts", [](TypedAccount& t) { t.to_froms_count = -5; }, false},
      {"no number of texts that counts",
       [](TypedAccount& t) { t.to_froms_count = 0, t.to_froms_style = 2; }, true},
  };
  for (const Case& c : cases) {
    TestApplication test;
    const auto account = test.AddAccount("A");
    const auto revision = account->Revision();
    EXPECT_EQ(Edit(test, c.change), c.is_right) << c.what;
    EXPECT_EQ(test.app.accountSheet().State().is_open, !c.is_right) << c.what;
    if (c.is_right) continue;
    EXPECT_FALSE(test.app.accountSheet().State().ok_is_enabled) << c.what;
    test.app.accountSheet().AccountEditSheet_Cancel();
    EXPECT_EQ(account->Revision(), revision) << c.what;
  }
}

TEST(AccountSheet, WritesIntoTheAccountItself) {
  TestApplication test;
  const auto account = test.AddAccount("A");
  const auto check = account->AccountEntryTypeForNumber(0);
  account->SetDefaultDebitType(check);
  EXPECT_TRUE(Edit(test, [](TypedAccount& t) {
    EXPECT_EQ(t.types[static_cast<std::size_t>(t.default_debit_type)].name, "Check");
    t.name = "House";
    t.starting_balance = 12.345;
    t.password = t.password_again = "key";
    t.types.push_back({-1, "Autos", true, false});
    t.default_debit_type = static_cast<std::int32_t>(t.types.size()) - 1;
  }));
  EXPECT_EQ(test.app.desk().accounts().front(), account);
  EXPECT_EQ(test.app.selection().WindowTitle(), "Tallyfold:  House");
  EXPECT_EQ(account->GetStartingBalance(), 12.35);
  EXPECT_EQ(account->GetPassword(), "key");
  EXPECT_TRUE(account->IsAuthenticated());
  EXPECT_EQ(TypeNames(account->GetTypes()).front(), "6 Autos");  // sorted by name
  EXPECT_EQ(account->GetDefaultDebitType()->GetName(), "Autos");
  EXPECT_EQ(account->AccountEntryTypeForNumber(0), check);
}

TEST(AccountSheet, TellsWhatTheAccountHasComeTo) {
  TestApplication test;
  test.app.accountSheet().Account_Add();
  EXPECT_FALSE(test.app.accountSheet().State().facts);
  test.app.accountSheet().AccountEditSheet_Cancel();
  const auto account = test.AddAccount("A");
  const auto facts = [&test] {
    Texts lines;
    EXPECT_TRUE(test.app.accountSheet().Account_Edit());
    for (const AccountFactLine& line : test.app.accountSheet().State().fact_lines) {
      lines.push_back(line.title + ": " + line.text);
    }
    test.app.accountSheet().AccountEditSheet_Cancel();
    return lines;
  };
  EXPECT_EQ(facts(), (Texts{"Entries: 0", "Scheduled: 0", "Next check: 1", "Balance: $0.00"}));
  test.AddDebit(12.5)->SetDate(20040229);
  test.AddDebit(1.0);
  test.AddDebit(2.0)->SetDate(20040303);
  test.AddDueSchedule();
  account->SetStartingCheckNumber(40);
  EXPECT_EQ(facts(),
            (Texts{"Entries: 3, from 02/29/04 to 03/07/04", "Scheduled: 1, the next on 03/01/04",
                   "Next check: 40", "Balance: -$15.50"}));
}

TEST(AccountSheet, TakesUsedTypesOutOfUseAndForgetsOthers) {
  TestApplication test;
  const auto account = test.AddAccount("A");
  test.AddDebit(1.0)->SetType(0);
  auto schedule = std::make_shared<LDGRAccountSchedule>();
  schedule->SetType(1);
  account->AddSchedule(schedule);
  account->SetDefaultDebitType(account->AccountEntryTypeForNumber(0));
  EXPECT_TRUE(Edit(test, [](TypedAccount& t) {
    std::erase_if(t.types, [](const auto& row) { return row.number < 3; });
    t.default_debit_type = -1;
  }));
  EXPECT_EQ(TypeNames(account->GetTypes()), (Texts{"3 Deposit", "4 Direct Deposit", "5 Gift"}));
  EXPECT_EQ(TypeNames(account->GetInactiveTypes()), (Texts{"0 Check", "1 Debit Card"}));
  EXPECT_EQ(account->GetDefaultDebitType(), nullptr);

  // One that stays out of use is no loss of an edit, and comes back by its row or with the types of
  // another account; one that nothing has goes.
  const auto row_named = [](const TypedAccount& t, std::string_view name) {
    const auto row = std::ranges::find(t.types, name, &AccountEditSheetState::TypeRow::name);
    return static_cast<std::size_t>(row - t.types.begin());
  };
  EXPECT_TRUE(Edit(test, [&](TypedAccount& t) {
    ASSERT_EQ(t.types.size(), 5U);
    BringTypeBack(t, row_named(t, "Check"));
    const std::size_t gift = row_named(t, "Gift");
    t.default_deposit_type = static_cast<std::int32_t>(gift);
    TakeTypeOutOfUse(t, gift);
    EXPECT_EQ(t.default_deposit_type, -1);
    EXPECT_EQ(InsertType(t, 0, "Cash"), 1U);
    EXPECT_EQ(t.types[1].is_check, t.types[0].is_check);
  }));
  EXPECT_EQ(TypeNames(account->GetTypes()),
            (Texts{"6 Cash", "0 Check", "3 Deposit", "4 Direct Deposit"}));
  EXPECT_EQ(TypeNames(account->GetInactiveTypes()), (Texts{"1 Debit Card"}));
  ASSERT_TRUE(test.app.accountSheet().Account_Edit());
  const auto& state = test.app.accountSheet().State();
  EXPECT_EQ(state.EntriesWith(state.typed.types[row_named(state.typed, "Check")]), 1U);
  EXPECT_EQ(state.FateOf(state.typed.types[row_named(state.typed, "Debit Card")]),
            AccountEditSheetState::TypeFate::OutOfUse);
  ASSERT_TRUE(test.app.accountSheet().ImportTypesFrom(LDGRAccount()));
  ASSERT_TRUE(test.app.accountSheet().AccountEditSheet_OK());
  EXPECT_EQ(TypeNames(account->GetInactiveTypes()), Texts());
  EXPECT_EQ(account->GetTypes().size(), 7U);
}

TEST(AccountRemoval, UnlinksWhatPointsThere) {
  TestApplication test;
  auto& app = test.app;
  const auto a = test.AddAccount("A");
  const auto b = test.AddAccount("B");
  const auto c = test.AddAccount("C");
  app.selection().Account_Select(a);
  const auto half = test.AddTransferTo(*b, 5.0);
  const auto other_half = test.AddTransferTo(*c, 6.0);
  auto schedule = std::make_shared<LDGRAccountSchedule>();
  schedule->SetIsTransfer(true);
  schedule->SetTransferAccount(2);
  schedule->SetTransferEntry(9);
  a->AddSchedule(schedule);
  a->setLastTransferAccount(2);
  app.desk().preferences().GetPreferencesForAccountNumber(2);
  app.selection().Account_Select(b);
  EXPECT_FALSE(app.accountRemoval().Account_Remove());  // the first button is the safe one
  test.alerts.Answer("Remove");
  EXPECT_TRUE(app.accountRemoval().Account_Remove());
  EXPECT_EQ(app.desk().accounts(), (AccountList{a, c}));
  EXPECT_EQ(app.desk().SelectedAccount(), c);
  EXPECT_EQ(Line(*half), "#1 20040307 transfer -5.00 to 'B' origin");
  EXPECT_EQ(other_half->GetTransferAccount(), 3);
  EXPECT_EQ(schedule->GetTransferAccount(), -1);
  EXPECT_EQ(schedule->GetTransferEntry(), -1);
  EXPECT_EQ(a->lastTransferAccount(), -1);
  const auto has_view = [&app] {
    const auto& views = app.desk().preferences().GetAccountPreferences();
    return std::any_of(views.begin(), views.end(),
                       [](const auto& each) { return each->GetAccountNumber() == 2; });
  };
  EXPECT_FALSE(has_view());
  EXPECT_TRUE(app.undo().UndoStep());
  EXPECT_EQ(app.desk().SelectedAccount(), b);
  EXPECT_TRUE(has_view());
  EXPECT_TRUE(app.undo().RedoStep());
  EXPECT_EQ(app.desk().SelectedAccount(), a);
  EXPECT_FALSE(has_view());
}

TEST(AccountsDrawer, ListsASortedCopy) {
  TestApplication test;
  auto& app = test.app;
  const auto b = test.AddAccount("b");
  test.AddDebit(10.0);
  const auto a = test.AddAccount("A");
  TableLog log;
  app.accountsDrawer().Table().SetShownBy(&log);
  const auto c = test.AddAccount("C");
  EXPECT_TRUE(log.Take().starts_with("+2; "));
  app.accountsDrawer().Table().SetShownBy(nullptr);
  c->SetStartingBalance(5.0);
  const AccountList in_file = app.desk().accounts();
  struct Case {
    const char* column;
    AccountList order;
  } const cases[] = {
      {"", {a, b, c}},         {"accounts", {c, b, a}}, {"accounts", {a, b, c}},
      {"balance", {b, a, c}},  {"balance", {c, a, b}},  {"nonsense", {c, a, b}},
      {"accounts", {a, b, c}},
  };
  for (const Case& each : cases) {
    if (*each.column != 0) app.accountsDrawer().ClickedTableColumn(each.column);
    EXPECT_EQ(app.accountsDrawer().Rows(), each.order) << each.column;
  }
  EXPECT_EQ(app.desk().accounts(), in_file);

  app.accountsDrawer().accountsDrawer_Accounts_Table_Action(0);
  EXPECT_EQ(app.desk().SelectedAccount(), a);
  EXPECT_EQ(app.accountsDrawer().Table().SelectedRow(), 0);
  EXPECT_EQ(app.accountsDrawer().Table().HighlightedColumn(), "accounts");
  EXPECT_EQ(app.accountsDrawer().tableView("balance", 2),
            (TableCell{"$5.00", 5.0, TableCell::Alignment::Right}));
  c->SetPassword("pass");
  c->setAuthenticated(false);
  EXPECT_EQ(app.accountsDrawer().tableView("balance", 2).text, "Locked");
  EXPECT_EQ(app.accountsDrawer().tableView("balance", 2).number, std::nullopt);
  EXPECT_EQ(app.accountsDrawer().tableView("accounts", 3), TableCell{});
  app.accountsDrawer().accountsDrawer_Accounts_Table_Action(3);
  EXPECT_EQ(app.desk().SelectedAccount(), a);
  app.accountsDrawer().accountsDrawer_Accounts_Table_DoubleClick(1);
  EXPECT_EQ(app.accountSheet().State().typed.name, "b");
}

TEST(Menus, FollowTheSelection) {
  TestApplication test;
  auto& app = test.app;
  const auto a = test.AddAccount("A");
  const auto b = test.AddAccount("B");
  EXPECT_EQ(app.menus().AccountMenu(),
            (std::vector<MenuItem>{{"A", 1, true, false}, {"B", 2, true, true}}));
  app.menus().Account_Menu_Show_MenuItem(1);
  app.menus().Account_Menu_Show_MenuItem(77);
  EXPECT_EQ(app.desk().SelectedAccount(), a);

  const auto entry = test.AddDebit(1.0);
  const auto items = app.menus().EntryTypeMenu();
  ASSERT_EQ(items.size(), 7U);
  EXPECT_TRUE(items[0].is_enabled);
  EXPECT_TRUE(items[3].is_separator);
  EXPECT_FALSE(items[4].is_enabled);
  const auto revision = a->Revision();
  app.menus().entryMenu_Types_MenuItem(items[4].tag);  // a deposit type
  app.menus().entryMenu_Types_MenuItem(77);
  EXPECT_EQ(entry->GetType(), -1);
  EXPECT_EQ(a->Revision(), revision);
  app.menus().entryMenu_Types_MenuItem(items[1].tag);
  EXPECT_EQ(entry->GetType(), items[1].tag);
  EXPECT_GT(a->Revision(), revision);
  EXPECT_TRUE(app.menus().EntryTypeMenu()[1].is_checked);
}

}  // namespace
}  // namespace tallyfold

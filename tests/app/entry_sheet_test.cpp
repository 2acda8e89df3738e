#include "app/entry_sheet.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "app/test_application.h"
#include "model/entry_type.h"

namespace tallyfold {
namespace {

using Typed = EntrySheetState::Typed;

std::vector<std::string> Titles(const std::vector<PopUpItem>& items) {
  std::vector<std::string> titles;
  for (const PopUpItem& item : items) titles.push_back(item.is_separator ? "-" : item.title);
  return titles;
}

TEST(EntrySheets, WriteWhatWasTypedIntoTheEntry) {
  struct Case {
    const char* what;
    bool is_debit;
    std::function<void(Typed&)> type;
    const char* line;
  } const cases[] = {
      {"a debit is stored negative", true, [](Typed& t) { t.amount = 12.5; },
       "#1 20040307 debit -12.50"},
      {"a deposit as typed", false, [](Typed& t) { t.amount = 12.5; }, "#1 20040307 deposit 12.50"},
      {"a negative amount turns round", true, [](Typed& t) { t.amount = -3.0; },
       "#1 20040307 debit 3.00"},
      {"texts and marks", true,
       [](Typed& t) {
         t.description = "Food";
         t.to_from = "Shop";
         t.cleared = t.tax_deductible = true;
         t.notes = "n";
       },
       "#1 20040307 debit 0.00 'Food' to 'Shop' cleared tax notes 'n'"},
      {"the first type", true, [](Typed& t) { t.type = 0; }, "#1 20040307 debit 0.00 type=0"},
      {"the last type", true, [](Typed& t) { t.type = 2; }, "#1 20040307 debit 0.00 type=2"},
      {"the separator", true, [](Typed& t) { t.type = 3; }, "#1 20040307 debit 0.00"},
      {"no type", true, [](Typed& t) { t.type = 4; }, "#1 20040307 debit 0.00"},
      {"a row that is not there", true, [](Typed& t) { t.type = 99; }, "#1 20040307 debit 0.00"},
      {"a deposit type", false, [](Typed& t) { t.type = 1; }, "#1 20040307 deposit 0.00 type=4"},
      {"a check", true,
       [](Typed& t) {
         t.check = true;
         t.check_number = 1042;
       },
       "#1 20040307 debit 0.00 check=1042"},
      {"a check without a number", true, [](Typed& t) { t.check = true; },
       "#1 20040307 debit 0.00 check=0"},
      {"a number without a check", true, [](Typed& t) { t.check_number = 1042; },
       "#1 20040307 debit 0.00"},
      {"deposits are no checks", false, [](Typed& t) { t.check = true; },
       "#1 20040307 deposit 0.00"},
      {"a split", true,
       [](Typed& t) {
         t.amount = 1.0;
         t.to_from = "Shop";
         t.split[0] = {"Rent", "Owner", 10.004};
         t.split[9] = {"Heat", "", 5.25};
       },
       "#1 20040307 debit 15.25 to 'Split' split(Rent,Owner,10.00) split(Heat,,5.25)"},
      {"a split without amounts", false,
       [](Typed& t) {
         t.amount = 1.0;
         t.split[3] = {"Rent", "", 0.0};
       },
       "#1 20040307 deposit 0.00 to 'Split' split(Rent,,0.00)"},
      {"a day beyond its month", true, [](Typed& t) { t.date = 20040431; },
       "#1 20040430 debit 0.00"},
      {"a leap day by the simple rule", true, [](Typed& t) { t.date = 19000229; },
       "#1 19000229 debit 0.00"},
  };
  for (const Case& c : cases) {
    TestApplication test;
    const auto account = test.AddAccount("Bank");
    auto& app = test.app;
    ASSERT_TRUE(c.is_debit ? app.Entry_Debit() : app.Entry_Deposit()) << c.what;
    Typed typed = c.is_debit ? app.DebitSheet().typed : app.DepositSheet().typed;
    c.type(typed);
    c.is_debit ? app.DebitSheet_Read(typed) : app.DepositSheet_Read(typed);
    EXPECT_TRUE(c.is_debit ? app.DebitSheet_OK() : app.DepositSheet_OK()) << c.what;
    EXPECT_EQ(Lines(*account), std::vector<std::string>{c.line}) << c.what;
    EXPECT_EQ(app.SelectedEntry(), account->GetEntries().front()) << c.what;
    EXPECT_EQ(app.OpenSheet(), Sheet::None) << c.what;
  }
}

TEST(EntrySheets, StayOpenAndChangeNothingWhenAValueCannotBeStored) {
  struct Case {
    const char* what;
    std::function<void(TestApplication&, Typed&)> type;
    const char* problem;
  } const cases[] = {
      {"month 13", [](auto&, Typed& t) { t.date = 20041301; }, "The date does not exist."},
      {"day 0", [](auto&, Typed& t) { t.date = 20040100; }, "The date does not exist."},
      {"no year", [](auto&, Typed& t) { t.date = 101; }, "The date does not exist."},
      {"a negative date", [](auto&, Typed& t) { t.date = -20040101; }, "The date does not exist."},
      {"no amount", [](auto&, Typed& t) { t.amount = std::numeric_limits<double>::quiet_NaN(); },
       "The amount is not a number."},
      {"an endless amount in the split",
       [](auto&, Typed& t) { t.split[2].amount = std::numeric_limits<double>::infinity(); },
       "The amount is not a number."},
      {"a negative check number",
       [](auto&, Typed& t) {
         t.check = true;
         t.check_number = -1;
       },
       "The check number must not be negative."},
      {"a field that refuses its text",
       [](TestApplication& test, Typed&) { test.front_end.refuses = true; }, ""},
      {"an entry removed meanwhile", [](TestApplication& test, Typed&) { test.app.Entry_Delete(); },
       "The entry has been removed."},
      {"another account", [](TestApplication& test, Typed&) { test.app.Account_Deselect(); },
       "The account is no longer selected."},
  };
  for (const Case& c : cases) {
    TestApplication test;
    const auto account = test.AddAccount("Bank");
    const auto entry = test.AddDebit(5.0, "Food");
    const std::string before = Line(*entry);
    auto& app = test.app;
    ASSERT_TRUE(app.Entry_Edit()) << c.what;
    Typed typed = app.DebitSheet().typed;
    typed.description = "Changed";
    c.type(test, typed);
    app.DebitSheet_Read(typed);
    EXPECT_FALSE(app.DebitSheet_Deposit()) << c.what;
    EXPECT_EQ(app.DebitSheet().problem, c.problem) << c.what;
    EXPECT_EQ(app.OpenSheet(), Sheet::Debit) << c.what;
    EXPECT_EQ(Line(*entry), before) << c.what;
    app.DebitSheet_Cancel();
    EXPECT_EQ(app.OpenSheet(), Sheet::None) << c.what;
    EXPECT_EQ(Line(*entry), before) << c.what;
  }
}

TEST(EntrySheets, ShowAnOldEntryAsItIsAndKeepIt) {
  TestApplication test;
  const auto account = test.AddAccount("Bank");
  auto inactive = account->AccountEntryTypeForNumber(1);
  account->DeactivateType(inactive);
  auto split = std::make_shared<LDGRAccountEntrySplit>();
  split->SetDescription("Rent", 4);
  split->SetAmount(10.0, 4);

  struct Case {
    const char* what;
    std::function<void(LDGRAccountEntry&)> make;
    std::function<void(const EntrySheetState&)> expect;
  } const cases[] = {
      {"a check",
       [](LDGRAccountEntry& e) {
         e.SetIsDebit(true);
         e.SetAmount(-7.5);
         e.SetIsCheck(true);
         e.SetCheckNumber(12);
         e.SetType(0);
       },
       [](const EntrySheetState& s) {
         EXPECT_EQ(s.typed.amount, 7.5);
         EXPECT_EQ(s.typed.check_number, 12);
         EXPECT_TRUE(s.check_number_is_enabled);
         EXPECT_EQ(s.typed.type, 0);
         EXPECT_EQ(Titles(s.type_items),
                   (std::vector<std::string>{"Check", "Online Payment", "-", "None"}));
       }},
      {"a type out of use",
       [](LDGRAccountEntry& e) {
         e.SetIsDebit(true);
         e.SetType(1);
       },
       [](const EntrySheetState& s) {
         EXPECT_EQ(s.type_items[static_cast<std::size_t>(s.typed.type)].title, "Debit Card");
         EXPECT_EQ(s.typed.type, 2);
         EXPECT_FALSE(s.typed.check_number.has_value());
       }},
      {"a type that does not exist",
       [](LDGRAccountEntry& e) {
         e.SetIsDeposit(true);
         e.SetType(77);
       },
       [](const EntrySheetState& s) { EXPECT_EQ(s.typed.type, kNoItem); }},
      {"no type", [](LDGRAccountEntry& e) { e.SetIsDeposit(true); },
       [](const EntrySheetState& s) {
         EXPECT_EQ(s.type_items[static_cast<std::size_t>(s.typed.type)].title, "None");
       }},
      {"a split",
       [&split](LDGRAccountEntry& e) {
         e.SetIsDebit(true);
         e.SetAmount(10.0);
         e.SetToFrom("Split");
         e.SetSplit(split);
       },
       [](const EntrySheetState& s) {
         EXPECT_EQ(s.typed.amount, 10.0);
         EXPECT_EQ(s.split_total, 10.0);
         EXPECT_FALSE(s.amount_is_enabled);
         EXPECT_FALSE(s.to_from_is_enabled);
       }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    auto entry = std::make_shared<LDGRAccountEntry>();
    entry->SetNumber(account->NextAvailableNumber());
    entry->SetDate(20040229);
    c.make(*entry);
    account->AddEntry(entry);
    const std::string before = Line(*entry);
    test.app.EntryTab_Enter();
    test.app.SelectEntry(entry);
    ASSERT_TRUE(test.app.Entry_Edit());
    const bool is_debit = entry->IsDebit();
    c.expect(is_debit ? test.app.DebitSheet() : test.app.DepositSheet());
    EXPECT_TRUE(is_debit ? test.app.DebitSheet_OK() : test.app.DepositSheet_OK());
    EXPECT_EQ(Line(*entry), before);
  }
}

TEST(EntrySheets, KeepTheSplitTableAndItsFieldsTogether) {
  TestApplication test;
  test.AddAccount("Bank");
  auto& app = test.app;
  const auto& state = app.DepositSheet();
  const auto edit = [&app, &state](std::size_t row, const SplitRow& value) {
    Typed typed = state.typed;
    typed.split[row] = value;
    app.DepositSheet_Read(typed);
    app.DepositSheet_Split_Table_Field();
  };
  app.Entry_Deposit();
  EXPECT_FALSE(app.DepositSheet_IsSplit());
  edit(2, {"Pay", "", 100.0});
  edit(3, {"", "Bonus", 50.0});
  EXPECT_TRUE(app.DepositSheet_IsSplit());
  EXPECT_EQ(state.split_total, 150.0);
  EXPECT_EQ(state.typed.amount, 150.0);
  EXPECT_EQ(state.typed.to_from, "Split");
  EXPECT_FALSE(state.amount_is_enabled || state.to_from_is_enabled);

  // Emptying the rows one by one ends the split as clearing it does.
  edit(2, {});
  edit(3, {});
  EXPECT_TRUE(state.amount_is_enabled && state.to_from_is_enabled);
  EXPECT_EQ(state.typed.to_from, "");

  for (const bool with_amount : {true, false}) {
    edit(9, {"Pay", "", 20.0});
    with_amount ? app.DepositSheet_ClearSplit() : app.DepositSheet_Split_ClearSplit();
    EXPECT_FALSE(app.DepositSheet_IsSplit());
    EXPECT_EQ(state.typed.amount, with_amount ? 0.0 : 20.0);
    EXPECT_EQ(state.typed.to_from, "");
    EXPECT_EQ(state.typed.selected_split_row, 0);
    EXPECT_EQ(state.split_total, 0.0);
    EXPECT_TRUE(state.amount_is_enabled && state.to_from_is_enabled);
  }

  edit(0, {"Pay", "", 20.0});
  app.DepositSheet_OK();
  app.Entry_Edit();
  app.DepositSheet_ClearSplit();
  app.DepositSheet_OK();
  EXPECT_EQ(app.SelectedEntry()->GetSplit(), nullptr);
}

TEST(EntrySheets, FillTheCheckNumberWhenTheBoxIsTicked) {
  struct Case {
    bool automatic;
    std::optional<std::int32_t> typed;
    std::optional<std::int32_t> expected;
  } const cases[] = {{true, {}, 501}, {false, {}, 0}, {true, 7, 7}, {false, 7, 7}};
  for (const Case& c : cases) {
    TestApplication test;
    test.AddAccount("Bank")->SetStartingCheckNumber(501);
    test.app.preferences().SetNumberChecksAutomatically(c.automatic);
    test.app.Entry_Debit();
    Typed typed = test.app.DebitSheet().typed;
    typed.check = true;
    typed.check_number = c.typed;
    test.app.DebitSheet_Read(typed);
    test.app.debitSheet_CheckNumber_Button();
    EXPECT_EQ(test.app.DebitSheet().typed.check_number, c.expected);
    EXPECT_TRUE(test.app.DebitSheet().check_number_is_enabled);
    typed = test.app.DebitSheet().typed;
    typed.check = false;
    test.app.DebitSheet_Read(typed);
    test.app.debitSheet_CheckNumber_Button();
    EXPECT_FALSE(test.app.DebitSheet().check_number_is_enabled);
    EXPECT_EQ(test.app.DebitSheet().typed.check_number, c.expected);
  }
}

TEST(EntrySheets, FocusTheFieldThatThePreferencesName) {
  struct Case {
    std::int32_t preference;
    SheetField field;
  } const cases[] = {{0, SheetField::Date},   {1, SheetField::Amount}, {2, SheetField::Description},
                     {3, SheetField::ToFrom}, {4, SheetField::Type},   {5, SheetField::Date},
                     {-1, SheetField::Date}};
  for (const Case& c : cases) {
    TestApplication test;
    test.AddAccount("Bank");
    auto& preferences = test.app.preferences();
    preferences.SetSelectWhichFieldFirstWhenAddingEntries(c.preference);
    preferences.SetSelectWhichFieldFirstWhenChangingEntries(2);
    test.app.Entry_Transfer();
    EXPECT_EQ(test.app.TransferSheet().first_field, c.field) << c.preference;
    test.app.TransferSheet_Cancel();
    test.app.SelectEntry(test.AddDebit(1.0));
    test.app.Entry_Edit();
    EXPECT_EQ(test.app.DebitSheet().first_field, SheetField::Description) << c.preference;
  }
}

TEST(EntrySheets, OpenOneAtATimeAndOnlyForAnAccount) {
  TestApplication test;
  auto& app = test.app;
  EXPECT_FALSE(app.Entry_Debit());
  const auto account = test.AddAccount("Bank");
  EXPECT_FALSE(app.Entry_Edit());  // nothing is selected
  EXPECT_FALSE(app.DebitSheet_OK());

  ASSERT_TRUE(app.Entry_Debit());
  EXPECT_EQ(app.OpenSheet(), Sheet::Debit);
  EXPECT_FALSE(app.Entry_Deposit());
  EXPECT_FALSE(app.Account_Add());
  EXPECT_FALSE(app.DepositSheet_OK());
  app.DepositSheet_Cancel();
  EXPECT_EQ(app.OpenSheet(), Sheet::Debit);
  app.DebitSheet_Cancel();
  EXPECT_TRUE(account->GetEntries().empty());
  EXPECT_EQ(account->GetNumberCount(), 1);  // the number given to the cancelled entry

  const auto of_no_kind = std::make_shared<LDGRAccountEntry>();
  account->AddEntry(of_no_kind);
  app.EntryTab_Enter();
  app.SelectEntry(of_no_kind);
  EXPECT_EQ(app.SelectedEntry(), of_no_kind);
  EXPECT_FALSE(app.Entry_Edit());
}

TEST(EntrySheets, StartTheNextEntryAtOnce) {
  TestApplication test;
  const auto account = test.AddAccount("Bank");
  auto& app = test.app;
  app.Entry_Debit();
  EXPECT_TRUE(app.DebitSheet_Deposit());
  EXPECT_EQ(app.OpenSheet(), Sheet::Deposit);
  EXPECT_TRUE(app.DepositSheet_Transfer());
  EXPECT_TRUE(app.TransferSheet_Debit());
  EXPECT_TRUE(app.DebitSheet().is_open);
  EXPECT_EQ(account->GetEntries().size(), 3U);
}

}  // namespace
}  // namespace tallyfold

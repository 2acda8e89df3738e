#include "app/entries/entry_sheet.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "app/accounts/account_selection.h"
#include "app/desk.h"
#include "app/entries/entry_editing.h"
#include "app/entries/entry_removal.h"
#include "app/face/sheet_slot.h"
#include "app/shell/tabs.h"
#include "app/test_application.h"
#include "model/entry_type.h"

namespace tallyfold {
namespace {

using Typed = EntrySheetState::Typed;

TEST(EntrySheets, WriteWhatWasTypedIntoTheEntry) {
  struct Case {
    const char* what;
    bool is_debit;
    std::function<void(Typed&)> type;
    const char* line;
  } const cases[] = {
      {"a negative line of a split", true, [](Typed& t) { t.split[0].amount = -3.0; },
       "#1 20040307 debit -3.00 to 'Split' split(,,-3.00)"},
      {"the last type", true, [](Typed& t) { t.type = 2; }, "#1 20040307 debit 0.00 type=2"},
      {"the separator", true, [](Typed& t) { t.type = 3; }, "#1 20040307 debit 0.00"},
      {"no type", true, [](Typed& t) { t.type = 4; }, "#1 20040307 debit 0.00"},
      {"a row that is not there", true, [](Typed& t) { t.type = 99; }, "#1 20040307 debit 0.00"},
      {"a check without a number", true, [](Typed& t) { t.check = true; },
       "#1 20040307 debit 0.00 check=0"},
      {"a number without a check", true, [](Typed& t) { t.check_number = "1042"; },
       "#1 20040307 debit 0.00"},
      {"a deposit, which is no check", false,
       [](Typed& t) { t.check = true, t.amount = 12.5, t.type = 1; },
       "#1 20040307 deposit 12.50 type=4"},
      {"a split", true,
       [](Typed& t) {
         t.amount = 1.0;
         t.split[0] = {"Rent", "Owner", 10.004};
         t.split[9] = {"Heat", "", 5.25};
       },
       "#1 20040307 debit 15.25 to 'Split' split(Rent,Owner,10.00) split(Heat,,5.25)"},
      {"a split without amounts", false,
       [](Typed& t) {
         t.amount = 1.0, t.split[3] = {"Rent", "", 0.0};
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
    ASSERT_TRUE(c.is_debit ? app.entries().New(EntryKind::Debit)
                           : app.entries().New(EntryKind::Deposit))
        << c.what;
    Typed typed =
        c.is_debit ? app.entries().Debit().State().typed : app.entries().Deposit().State().typed;
    c.type(typed);
    c.is_debit ? app.entries().Debit().Read(typed) : app.entries().Deposit().Read(typed);
    EXPECT_TRUE(c.is_debit ? app.entries().Debit().OK() : app.entries().Deposit().OK()) << c.what;
    EXPECT_EQ(Lines(*account), std::vector<std::string>{c.line}) << c.what;
    EXPECT_EQ(app.desk().SelectedEntry(), account->GetEntries().front()) << c.what;
    EXPECT_EQ(app.sheets().Current(), Sheet::None) << c.what;
  }
}

TEST(EntrySheets, StayOpenAndChangeNothingWhenAValueCannotBeStored) {
  struct Case {
    const char* what;
    std::function<void(TestApplication&, Typed&)> type;
    const char* problem;
  } const cases[] = {
      {"month 13", [](auto&, Typed& t) { t.date = 20041301; }, "The date does not exist."},
      {"a negative date", [](auto&, Typed& t) { t.date = -20040101; }, "The date does not exist."},
      {"no amount", [](auto&, Typed& t) { t.amount = std::numeric_limits<double>::quiet_NaN(); },
       "The amount is not a number."},
      {"a negative amount", [](auto&, Typed& t) { t.amount = -3.0; },
       "The amount must not be negative."},
      {"an endless amount in the split",
       [](auto&, Typed& t) { t.split[2].amount = std::numeric_limits<double>::infinity(); },
       "The amount is not a number."},
      {"a negative check number", [](auto&, Typed& t) { t.check = true, t.check_number = "-1"; },
       "The check number must not be negative."},
      {"a check number that cannot be read",
       [](auto&, Typed& t) { t.check = true, t.check_number = "12a"; },
       "The check number is not a number."},
      {"a field that refuses its text",
       [](TestApplication& test, Typed&) { test.front_end.refuses = true; }, ""},
      {"an entry removed meanwhile",
       [](TestApplication& test, Typed&) { test.app.entryRemoval().Entry_Delete(); },
       "The entry has been removed."},
      {"another account",
       [](TestApplication& test, Typed&) { test.app.selection().Account_Deselect(); },
       "The account is no longer selected."},
  };
  for (const Case& c : cases) {
    TestApplication test;
    const auto account = test.AddAccount("Bank");
    const auto entry = test.AddDebit(5.0, "Food");
    const std::string before = Line(*entry);
    auto& app = test.app;
    ASSERT_TRUE(app.entries().Entry_Edit()) << c.what;
    Typed typed = app.entries().Debit().State().typed;
    typed.description = "Changed";
    c.type(test, typed);
    app.entries().Debit().Read(typed);
    EXPECT_FALSE(app.entries().Debit().OKThenNew(EntryKind::Deposit)) << c.what;
    EXPECT_EQ(TextOf(app.entries().Debit().State().problem), c.problem) << c.what;
    EXPECT_EQ(app.sheets().Current(), Sheet::Debit) << c.what;
    EXPECT_EQ(Line(*entry), before) << c.what;
    app.entries().Debit().Cancel();
    EXPECT_EQ(app.sheets().Current(), Sheet::None) << c.what;
    EXPECT_EQ(Line(*entry), before) << c.what;
  }
}

// What the sheet shows, in one line.
std::string Shown(const EntrySheetState& s) {
  std::string line = std::to_string(*s.typed.amount).substr(0, 4);
  if (!s.typed.check_number.empty()) line += " check " + s.typed.check_number;
  if (s.check_number_is_enabled) line += " (enabled)";
  line += s.typed.type == kNoItem
              ? " no item"
              : ' ' + s.type_items.at(static_cast<std::size_t>(s.typed.type)).title;
  line += s.amount_is_enabled && s.to_from_is_enabled ? "" : " split";
  return line + " of " + testing::PrintToString(TitlesOf(s.type_items));
}

TEST(EntrySheets, KeepAStoredAmountOfTheWrongSignButTakeNoOther) {
  TestApplication test;
  auto& app = test.app;
  const auto other = test.AddAccount("Other");
  const auto account = test.AddAccount("Bank");
  test.AddTransferTo(*other, 1.0);
  test.AddDebit(1.0);
  app.entries().New(EntryKind::Deposit);
  app.entries().Deposit().OK();
  for (const auto& entry : account->GetEntries()) {
    entry->SetAmount(entry->IsDeposit() ? -5.0 : 5.0);
    const std::string before = Line(*entry);
    for (const double change : {0.0, 1.0}) {
      app.desk().SelectEntry(entry);
      app.entries().Entry_Edit();
      bool is_taken = false;
      if (entry->IsTransfer()) {
        auto typed = app.entries().Transfer().State().typed;
        *typed.amount += change;
        app.entries().Transfer().Read(typed);
        is_taken = app.entries().Transfer().OK();
      } else if (entry->IsDebit()) {
        auto typed = app.entries().Debit().State().typed;
        *typed.amount += change;
        app.entries().Debit().Read(typed);
        is_taken = app.entries().Debit().OK();
      } else {
        auto typed = app.entries().Deposit().State().typed;
        *typed.amount += change;
        app.entries().Deposit().Read(typed);
        is_taken = app.entries().Deposit().OK();
      }
      EXPECT_EQ(is_taken, change == 0.0) << before;
      EXPECT_EQ(Line(*entry), before);
      app.sheets().CancelOpen();
    }
  }
}

TEST(EntrySheets, ShowAnOldEntryAsItIsAndKeepIt) {
  TestApplication test;
  const auto account = test.AddAccount("Bank");
  account->DeactivateType(account->AccountEntryTypeForNumber(1));
  auto split = std::make_shared<LDGRAccountEntrySplit>();
  split->SetAmount(10.0, 4);
  const std::string deposits = R"( of { "Deposit", "Direct Deposit", "Gift", "-", "None" })";
  struct Case {
    bool is_debit;
    std::int32_t type;
    std::int32_t check;
    bool is_split;
    std::string shown;
  } const cases[] = {
      {true, 0, 12, false,
       R"(7.50 check 12 (enabled) Check of { "Check", "Online Payment", "-", "None" })"},
      {true, 1, -1, false,  // out of use
       R"(7.50 Debit Card of { "Check", "Online Payment", "Debit Card", "-", "None" })"},
      {true, -1, -1, true, R"(10.0 None split of { "Check", "Online Payment", "-", "None" })"},
      {false, -1, -1, false, "-7.5 None" + deposits},
      {false, 77, -1, false, "-7.5 no item" + deposits},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.shown);
    auto entry = std::make_shared<LDGRAccountEntry>();
    entry->SetNumber(account->NextAvailableNumber());
    entry->SetDate(20040229);
    entry->SetIsDebit(c.is_debit);
    entry->SetIsDeposit(!c.is_debit);
    entry->SetAmount(c.is_split ? 10.0 : -7.5);
    entry->SetType(c.type);
    entry->SetIsCheck(c.check >= 0);
    entry->SetCheckNumber(c.check);
    if (c.is_split) entry->SetToFrom("Split");
    if (c.is_split) entry->SetSplit(split);
    account->AddEntry(entry);
    const std::string before = Line(*entry);
    test.app.tabs().EntryTab_Enter();
    test.app.desk().SelectEntry(entry);
    ASSERT_TRUE(test.app.entries().Entry_Edit());
    EXPECT_EQ(Shown(c.is_debit ? test.app.entries().Debit().State()
                               : test.app.entries().Deposit().State()),
              c.shown);
    EXPECT_TRUE(c.is_debit ? test.app.entries().Debit().OK() : test.app.entries().Deposit().OK());
    EXPECT_EQ(Line(*entry), before);
  }
}

TEST(EntrySheets, KeepTheSplitTableAndItsFieldsTogether) {
  TestApplication test;
  test.AddAccount("Bank");
  auto& app = test.app;
  const auto& state = app.entries().Deposit().State();
  const auto edit = [&app, &state](std::size_t row, const SplitRow& value) {
    Typed typed = state.typed;
    typed.split[row] = value;
    app.entries().Deposit().Read(typed);
    app.entries().Deposit().Split_Table_Field();
  };
  app.entries().New(EntryKind::Deposit);
  EXPECT_FALSE(app.entries().Deposit().IsSplit());
  edit(2, {"Pay", "", 100.0});
  edit(3, {"", "Bonus", 50.0});
  EXPECT_TRUE(app.entries().Deposit().IsSplit());
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
    with_amount ? app.entries().Deposit().ClearSplit() : app.entries().Deposit().Split_ClearSplit();
    EXPECT_FALSE(app.entries().Deposit().IsSplit());
    EXPECT_EQ(state.typed.amount, with_amount ? 0.0 : 20.0);
    EXPECT_EQ(state.typed.to_from, "");
    EXPECT_EQ(state.typed.selected_split_row, 0);
    EXPECT_EQ(state.split_total, 0.0);
    EXPECT_TRUE(state.amount_is_enabled && state.to_from_is_enabled);
  }

  // What was typed before the first line comes back after the last, also what is no amount.
  for (const std::optional<double> amount : {std::optional(50.0), std::optional<double>()}) {
    for (const bool by_hand : {true, false}) {
      Typed typed = state.typed;
      typed.amount = amount;
      app.entries().Deposit().Read(typed);
      edit(0, {"Pay", "", 20.0});
      EXPECT_EQ(state.split_target, amount);
      EXPECT_EQ(state.typed.amount, 20.0);
      by_hand ? edit(0, {}) : app.entries().Deposit().Split_ClearSplit();
      EXPECT_EQ(state.typed.amount, amount);
    }
  }

  edit(0, {"Pay", "", 20.0});
  app.entries().Deposit().Populate();
  EXPECT_TRUE(state.is_open);
  EXPECT_FALSE(app.entries().Deposit().IsSplit()) << "as the entry is";
  edit(0, {"Pay", "", 20.0});
  app.entries().Deposit().OK();
  app.entries().Entry_Edit();
  app.entries().Deposit().ClearSplit();
  app.entries().Deposit().OK();
  EXPECT_EQ(app.desk().SelectedEntry()->GetSplit(), nullptr);
}

TEST(EntrySheets, FillTheCheckNumberWhenTheBoxIsTicked) {
  struct Case {
    bool automatic;
    const char* typed;
    const char* expected;
  } const cases[] = {{true, "", "501"}, {false, "", "0"}, {true, "7", "7"}, {false, "7x", "7x"}};
  for (const Case& c : cases) {
    TestApplication test;
    auto& app = test.app;
    test.AddAccount("Bank")->SetStartingCheckNumber(501);
    app.desk().preferences().SetNumberChecksAutomatically(c.automatic);
    app.entries().New(EntryKind::Debit);
    Typed typed = app.entries().Debit().State().typed;
    typed.check_number = c.typed;
    for (const bool ticked : {true, false}) {
      typed.check = ticked;
      app.entries().Debit().Read(typed);
      app.entries().CheckNumber_Button();
      EXPECT_EQ(app.entries().Debit().State().check_number_is_enabled, ticked);
      typed = app.entries().Debit().State().typed;
      EXPECT_EQ(typed.check_number, c.expected);
    }
  }
}

TEST(EntrySheets, FocusTheFieldThatThePreferencesName) {
  TestApplication test;
  auto& app = test.app;
  test.AddAccount("Bank");
  using Field = SheetField;
  const std::pair<std::int32_t, Field> cases[] = {
      {0, Field::Date}, {1, Field::Amount}, {2, Field::Description}, {3, Field::ToFrom},
      {4, Field::Type}, {5, Field::Date},   {-1, Field::Date}};
  for (const auto& [preference, field] : cases) {
    app.desk().preferences().SetSelectWhichFieldFirstWhenAddingEntries(preference);
    app.entries().New(EntryKind::Transfer);
    EXPECT_EQ(app.entries().Transfer().State().first_field, field) << preference;
    app.entries().Transfer().Cancel();
  }
  app.desk().SelectEntry(test.AddDebit(1.0));
  app.entries().Entry_Edit();
  EXPECT_EQ(app.entries().Debit().State().first_field, Field::Amount);  // when an entry is changed
}

TEST(EntrySheets, StartTheNextEntryAtOnce) {
  TestApplication test;
  const auto account = test.AddAccount("Bank");
  auto& app = test.app;
  app.entries().New(EntryKind::Debit);
  EXPECT_TRUE(app.entries().Debit().OKThenNew(EntryKind::Deposit));
  EXPECT_EQ(app.sheets().Current(), Sheet::Deposit);
  EXPECT_TRUE(app.entries().Deposit().OKThenNew(EntryKind::Transfer));
  EXPECT_TRUE(app.entries().Transfer().OKThenNew(EntryKind::Debit));
  EXPECT_TRUE(app.entries().Debit().State().is_open);
  EXPECT_EQ(account->GetEntries().size(), 3U);
}

}  // namespace
}  // namespace tallyfold

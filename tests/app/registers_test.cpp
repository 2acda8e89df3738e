#include "app/views/registers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>

#include "app/accounts/account_editing.h"
#include "app/accounts/account_passwords.h"
#include "app/accounts/account_selection.h"
#include "app/desk.h"
#include "app/entries/amount_fields.h"
#include "app/entries/entry_editing.h"
#include "app/entries/entry_reveal.h"
#include "app/shell/application.h"
#include "app/shell/application_lock.h"
#include "app/shell/preferences_sheet.h"
#include "app/shell/tabs.h"
#include "app/test_application.h"
#include "app/views/balance_field.h"
#include "filters/register_search.h"
#include "filters/standard_filters.h"
#include "registers/entry_speaker.h"

namespace tallyfold {
namespace {

using Texts = std::vector<std::string>;

Texts Descriptions(const LDGRAccountTableViewData& shown) {
  Texts texts;
  for (const auto& entry : shown.GetEntries()) texts.push_back(entry->GetDescription());
  return texts;
}

// Adds an entry of that day through its sheet.
void Add(TestApplication& test, DateNumber date, const std::string& description) {
  test.app.entries().New(EntryKind::Debit);
  auto typed = test.app.entries().Debit().State().typed;
  typed.date = date;
  typed.description = description;
  test.app.entries().Debit().Read(typed);
  test.app.entries().Debit().OK();
}

TEST(Registers, LeaveOtherRowsAloneWhenFiltersDoNotFollow) {
  TestApplication test;
  auto& app = test.app;
  test.AddAccount("A");
  app.desk().preferences().SetLiveUpdatingFilters(false);
  app.search().Filter_Select(31);  // this month
  Add(test, 20040302, "stays");
  Add(test, 20040201, "hidden");
  Add(test, 20040301, "fits");
  EXPECT_EQ(Descriptions(app.registers().entryDataSource()), (Texts{"fits", "stays"}));

  // A row that no longer passes stays until the register is filtered again.
  app.entries().Entry_Edit();
  auto typed = app.entries().Debit().State().typed;
  typed.date = 20040202;
  app.entries().Debit().Read(typed);
  app.entries().Debit().OK();
  EXPECT_EQ(Descriptions(app.registers().entryDataSource()), (Texts{"fits", "stays"}));
  EXPECT_EQ(app.entryReveal().State().text, "");
  app.search().Search();
  EXPECT_EQ(Descriptions(app.registers().entryDataSource()), Texts{"stays"});
  Add(test, 20040203, "hidden too");
  EXPECT_EQ(app.entryReveal().State().text, "Added; hidden by the filter 'This Month'");
}

TEST(Registers, KeepARowWhoseMarkNoLongerPasses) {
  TestApplication test;
  auto& app = test.app;
  const auto account = test.AddAccount("A");
  Add(test, 20040302, "x");
  app.tabs().Select(Tab::Reconcile);
  app.search().Filter_Select(81);  // unresolved
  const auto entry = app.registers().reconcileDataSource().RowToEntry(0);
  const auto revision = account->Revision();
  app.entries().TurnClearedOver(entry);
  EXPECT_TRUE(entry->GetCleared());
  EXPECT_GT(account->Revision(), revision);
  EXPECT_EQ(app.registers().reconcileDataSource().GetEntries().size(), 1U);
  EXPECT_EQ(account->entryFilterType(), 0);
  app.search().Search();
  EXPECT_TRUE(app.registers().reconcileDataSource().GetEntries().empty());
}

TEST(Registers, FollowTheDay) {
  TestApplication test;
  auto& app = test.app;
  const auto account = test.AddAccount("A");
  app.balanceField().AccountBalance_PopUp(1);  // today's
  Add(test, 20040307, "today");
  const auto tomorrow = test.AddDebit(2.0);
  tomorrow->SetDate(20040308);
  app.search().Filter_Select(21);  // today
  EXPECT_EQ(app.registers().entryDataSource().GetEntries(), EntryList{account->GetEntries()[0]});
  EXPECT_EQ(app.balanceField().State().amount, 0.0);
  const auto filter = app.filters().Filters()[6]->asDictionary();
  test.ambient.clock.SetLocal({2004, 3, 7, 23, 59, 59});
  test.front_end.changed.clear();
  test.loop.AdvanceBy(std::chrono::seconds(15));
  EXPECT_EQ(app.registers().entryDataSource().GetEntries(), EntryList{tomorrow});
  EXPECT_EQ(app.balanceField().State().amount, -2.0);
  EXPECT_NE(app.filters().Filters()[6]->asDictionary(), filter);
  for (const Area area : {Area::Registers, Area::Balance, Area::ReconcileBalances, Area::Summary,
                          Area::Accounts, Area::Schedules}) {
    EXPECT_TRUE(std::ranges::count(test.front_end.changed, area)) << static_cast<int>(area);
  }
}

TEST(Registers, RememberHowEachAccountWasShown) {
  TestApplication test;
  auto& app = test.app;
  const auto a = test.AddAccount("A");
  const auto b = test.AddAccount("B");
  app.selection().Account_Select(a);
  app.registers().entryDataSource().HideTableColumnWithIdentifier("check");
  app.registers().entryDataSource().GetTableView()->MoveColumn(0, 3);
  const auto columns = app.registers().entryDataSource().VisibleTableColumns();
  app.selection().Account_Select(b);
  EXPECT_NE(app.registers().entryDataSource().VisibleTableColumns(), columns);
  app.selection().Account_Select(a);
  EXPECT_EQ(app.registers().entryDataSource().VisibleTableColumns(), columns);
}

TEST(Deselection, ShowsNothingOfTheAccountAnyMore) {
  const std::function<void(TestApplication&, const std::shared_ptr<LDGRAccount>&)> ways[] = {
      [](auto& test, const auto&) { test.app.selection().Account_Deselect(); },
      [](auto& test, const auto&) { test.app.applicationLock().lock(); },
      [](auto& test, const auto& account) { test.app.accountPasswords().Account_Lock(account); },
  };
  for (const auto& deselect : ways) {
    TestApplication test;
    auto& app = test.app;
    app.applicationLock().setPassword("x");
    const auto account = test.AddAccount("A");
    account->SetPassword("y");
    account->setReconcileFilterData("secret");
    for (int i = 0; i < 3; ++i) Add(test, 20040301 + i, "secret");
    app.tabs().Select(Tab::Reconcile);
    app.tabs().Select(Tab::Entry);
    app.search().Search_Field("secret");
    app.registers().entryDataSource().GetTableView()->SetColumnWidth(0, 77);
    app.speaker().SpeakEntries();
    EXPECT_TRUE(app.speaker().IsReading());
    deselect(test, account);
    EXPECT_FALSE(app.speaker().IsReading());
    EXPECT_EQ(app.search().State().entry, SearchFieldState());
    EXPECT_EQ(app.search().State().reconcile, SearchFieldState());
    const auto columns =
        app.desk().preferences().GetPreferencesForAccountNumber(1)->GetColumnsForTableIdentifier(
            "entry");
    const bool is_stored = columns && columns->size() > 0;
    EXPECT_EQ(is_stored, &deselect != &ways[0]);
    if (!is_stored) continue;
    EXPECT_EQ((*columns->begin()).DictionaryValue().Get("width").IntegerValue(), 77);
  }
}

TEST(AmountFields, EchoDigitsWhereTheUserWantsIt) {
  TestApplication test;
  auto& app = test.app;
  EXPECT_TRUE(app.amountFields().debit.textView({}, "1"));
  EXPECT_TRUE(test.field_speech.Heard().empty());
  app.preferencesSheet().Open();
  app.preferencesSheet().Read("speakEntryAmounts", true);
  app.preferencesSheet().OK();
  for (const char* digit : {"1", "2"}) {  // each key is heard to its end
    app.application().sendEvent(EventType::KeyDown);
    EXPECT_TRUE(app.amountFields().debit.textView({}, digit));
  }
  EXPECT_EQ(test.field_speech.Heard(), Texts{"1"});
  test.field_speech.Finish();
  test.loop.AdvanceBy(std::chrono::milliseconds(100));
  EXPECT_EQ(test.field_speech.Heard(), (Texts{"1", "2"}));
}

}  // namespace
}  // namespace tallyfold

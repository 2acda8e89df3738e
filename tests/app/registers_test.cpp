#include "app/views/registers.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>

#include "app/test_application.h"

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
  test.app.Entry_Debit();
  auto typed = test.app.DebitSheet().typed;
  typed.date = date;
  typed.description = description;
  test.app.DebitSheet_Read(typed);
  test.app.DebitSheet_OK();
}

TEST(Registers, FollowTheEntriesOfTheSelectedAccount) {
  TestApplication test;
  auto& app = test.app;
  const auto a = test.AddAccount("A");
  Add(test, 20040302, "second");
  Add(test, 20040301, "first");
  EXPECT_EQ(Descriptions(app.entryDataSource()), (Texts{"first", "second"}));
  EXPECT_EQ(Descriptions(app.reconcileDataSource()), (Texts{"first", "second"}));
  EXPECT_EQ(app.SelectedEntry()->GetDescription(), "first");

  app.Entry_Delete();
  EXPECT_EQ(Descriptions(app.entryDataSource()), Texts{"second"});
  const auto b = test.AddAccount("B");
  EXPECT_TRUE(app.entryDataSource().GetEntries().empty());
  app.Account_Select(a);
  EXPECT_EQ(Descriptions(app.entryDataSource()), Texts{"second"});
  app.setPassword("x");
  app.lock();
  EXPECT_EQ(app.entryDataSource().numberOfRowsInTableView(), 0U);
  EXPECT_EQ(app.entryDataSource().GetAccount(), nullptr);
}

TEST(Registers, LeaveOtherRowsAloneWhenFiltersDoNotFollow) {
  TestApplication test;
  auto& app = test.app;
  test.AddAccount("A");
  app.preferences().SetLiveUpdatingFilters(false);
  app.Filter_Select(31);  // this month
  Add(test, 20040302, "stays");
  Add(test, 20040201, "hidden");
  Add(test, 20040301, "fits");
  EXPECT_EQ(Descriptions(app.entryDataSource()), (Texts{"fits", "stays"}));

  // A row that no longer passes stays until the register is filtered again.
  app.Entry_Edit();
  auto typed = app.DebitSheet().typed;
  typed.date = 20040202;
  app.DebitSheet_Read(typed);
  app.DebitSheet_OK();
  EXPECT_EQ(Descriptions(app.entryDataSource()), (Texts{"fits", "stays"}));
  EXPECT_EQ(app.HiddenEntry().text, "Changed; hidden by the filter 'This Month'");
  app.Search();
  EXPECT_EQ(Descriptions(app.entryDataSource()), Texts{"stays"});
  EXPECT_EQ(app.HiddenEntry().text, "");
}

TEST(Registers, KeepARowWhoseMarkNoLongerPasses) {
  TestApplication test;
  auto& app = test.app;
  const auto account = test.AddAccount("A");
  Add(test, 20040302, "x");
  app.SelectTab(Tab::Reconcile);
  app.Filter_Select(81);  // unresolved
  const auto entry = app.reconcileDataSource().RowToEntry(0);
  const auto revision = account->Revision();
  app.currentTableDataSource_Cleared_CheckBox(entry);
  EXPECT_TRUE(entry->GetCleared());
  EXPECT_GT(account->Revision(), revision);
  EXPECT_EQ(app.reconcileDataSource().GetEntries().size(), 1U);
  EXPECT_EQ(account->entryFilterType(), 0);
  app.Search();
  EXPECT_TRUE(app.reconcileDataSource().GetEntries().empty());
}

TEST(Registers, RememberHowEachAccountWasShown) {
  TestApplication test;
  auto& app = test.app;
  const auto a = test.AddAccount("A");
  const auto b = test.AddAccount("B");
  app.Account_Select(a);
  app.entryDataSource().HideTableColumnWithIdentifier("check");
  app.entryDataSource().GetTableView()->MoveColumn(0, 3);
  const auto columns = app.entryDataSource().VisibleTableColumns();
  app.Account_Select(b);
  EXPECT_NE(app.entryDataSource().VisibleTableColumns(), columns);
  app.Account_Select(a);
  EXPECT_EQ(app.entryDataSource().VisibleTableColumns(), columns);
}

TEST(Reading, EndsWithTheUsersInputAndTheWindow) {
  struct Window final : MainWindow {
    bool IsMain() override { return is_main; }
    bool is_main = true;
  } window;
  TestApplication test(false);
  auto& app = test.app;
  app.SetMainWindow(&window);
  ASSERT_TRUE(app.applicationDidFinishLaunching());
  app.AccountEditSheet_OK();
  for (int i = 0; i < 3; ++i) Add(test, 20040301 + i, "x");

  app.SpeakEntries();
  EXPECT_TRUE(app.IsReadingEntries());
  app.application().sendEvent(EventType::KeyDown);
  EXPECT_FALSE(app.IsReadingEntries());
  app.SpeakEntries();
  app.SelectTab(Tab::Reconcile);
  EXPECT_FALSE(app.IsReadingEntries());
  window.is_main = false;
  app.SpeakEntries();
  EXPECT_FALSE(app.IsReadingEntries());
}

TEST(AmountFields, EchoDigitsWhereTheUserWantsIt) {
  TestApplication test;
  auto& app = test.app;
  EXPECT_TRUE(app.amountFields().debit.textView({}, "1"));
  EXPECT_TRUE(test.field_speech.Heard().empty());
  app.PreferencesSheet_Open();
  app.preferencesSheet().settings->SetSpeakEntryAmounts(true);
  app.PreferencesSheet_OK();
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

#include <gtest/gtest.h>

#include <algorithm>

#include "app/accounts/account_selection.h"
#include "app/face/sheet_slot.h"
#include "app/shell/undo.h"
#include "app/test_application.h"
#include "app/views/account_summary_sheet.h"
#include "app/views/account_summary_tab.h"

namespace tallyfold {
namespace {

TEST(SummaryTab, ShowsTheSelectedSummaryAsTheEntriesAreNow) {
  TestApplication test;
  EXPECT_TRUE(test.app.summaries().State().summaries.empty());
  EXPECT_FALSE(test.app.summaries().Select(0));
  EXPECT_EQ(test.app.summaries().Add(), nullptr);

  const auto account = test.AddAccount("A");
  EXPECT_EQ(test.app.summaries().State().selected_row, 0);
  ASSERT_TRUE(test.app.summaries().Select(1));
  EXPECT_EQ(test.app.summaries().State().layout.head.name, "All Entries, Month To Date");
  test.front_end.changed.clear();
  test.AddDebit(12.5);
  EXPECT_EQ(std::ranges::count(test.front_end.changed, Area::Summary), 1);
  EXPECT_EQ(test.app.summaries().State().layout.total.total, -12.5);

  const auto revision = account->Revision();
  test.ambient.clock.SetLocal({2004, 4, 1, 0, 0, 1});
  EXPECT_EQ(test.app.summaries().State().layout.head.first, 20040401);
  EXPECT_EQ(account->Revision(), revision) << "looking leaves nothing to save";
  EXPECT_FALSE(test.app.summaries().Select(12));

  test.app.selection().Account_Deselect();
  EXPECT_TRUE(test.app.summaries().State().summaries.empty());
  EXPECT_EQ(test.app.summaries().State().layout.head.name, "");
}

TEST(SummaryTab, GivesEverySummaryANameOfItsOwnAndKeepsTheLast) {
  TestApplication test;
  const auto account = test.AddAccount("A");
  EXPECT_EQ(test.app.summaries().Add()->name(), "Untitled Summary");
  const auto second = test.app.summaries().Add();
  EXPECT_EQ(second->name(), "Untitled Summary 2");
  EXPECT_EQ(account->selectedAccountSummary(), second);
  second->setShowChecks(1);
  for (const char* name : {"Untitled Summary 2 Copy", "Untitled Summary 2 Copy 2"}) {
    account->selectAccountSummary(second.get());
    const auto copy = test.app.summaries().Duplicate();
    EXPECT_EQ(copy->name(), name);
    EXPECT_EQ(copy->showChecks(), 1);
  }
  EXPECT_FALSE(test.app.summaries().Rename(" \t"));
  EXPECT_TRUE(test.app.summaries().Rename(" first"));
  EXPECT_EQ(test.app.summaries().State().summaries[1]->name(), " first");
  EXPECT_EQ(test.app.summaries().State().selected_row, 1);

  while (account->accountSummaries().size() > 1) ASSERT_TRUE(test.app.summaries().Remove());
  EXPECT_TRUE(test.alerts.Requests().empty());
  EXPECT_FALSE(test.app.summaries().Remove());
  EXPECT_EQ(test.alerts.Requests().size(), 1U);
  EXPECT_EQ(test.app.summaries().State().summaries.size(), 1U);
}

TEST(SummaryTab, ShowsTheSummaryOfAStepThatIsUndoneOrRedone) {
  TestApplication test;
  const auto account = test.AddAccount("A");
  auto& summaries = test.app.summaries();
  const auto renamed = summaries.Add();
  summaries.Rename("Renamed");
  ASSERT_TRUE(summaries.Select(0));
  const auto other = account->selectedAccountSummary();
  ASSERT_TRUE(test.app.undo().UndoStep());
  EXPECT_EQ(account->selectedAccountSummary(), renamed);
  EXPECT_EQ(summaries.State().layout.head.name, "Untitled Summary");
  ASSERT_TRUE(summaries.SelectSummary(other.get()));
  ASSERT_TRUE(test.app.undo().RedoStep());
  EXPECT_EQ(account->selectedAccountSummary(), renamed);
  EXPECT_EQ(summaries.State().layout.head.name, "Renamed");
  EXPECT_FALSE(summaries.SelectSummary(nullptr));
}

TEST(SummarySheet, ShowsItsResultWhileTheAccountStaysAsItIs) {
  TestApplication test;
  EXPECT_FALSE(test.app.summarySheet().Open());
  const auto account = test.AddAccount("A");
  test.AddDebit(12.5);
  const auto revision = account->Revision();
  ASSERT_TRUE(test.app.summarySheet().Open());
  const AccountSummarySheetState& sheet = test.app.summarySheet().State();
  EXPECT_EQ(test.app.summarySheet().Result().total.total, -12.5);
  EXPECT_FALSE(sheet.days_are_enabled);
  EXPECT_EQ(sheet.date_ranges.size(), 17U);
  EXPECT_EQ(test.app.summaries().Add(), nullptr);
  EXPECT_FALSE(test.app.summaries().Remove());

  auto typed = sheet.typed;
  typed.date_range = 20;
  typed.end = 20040306;
  typed.name = " ";
  test.app.summarySheet().Read(typed);
  EXPECT_TRUE(sheet.days_are_enabled);
  EXPECT_EQ(test.app.summarySheet().Result().total.total, 0.0);
  EXPECT_FALSE(test.app.summarySheet().OK()) << "without a name";
  EXPECT_EQ(account->Revision(), revision);
  EXPECT_EQ(test.app.summaries().State().layout.total.total, -12.5);
  test.app.summarySheet().Populate();
  typed = sheet.typed;
  EXPECT_EQ(typed.name, " Custom...");
  typed.name = "None";
  typed.show_debits = false;
  test.app.summarySheet().Read(typed);
  test.front_end.refuses = true;
  EXPECT_FALSE(test.app.summarySheet().OK());
  test.front_end.refuses = false;
  ASSERT_TRUE(test.app.summarySheet().OK());
  EXPECT_FALSE(sheet.is_open);
  EXPECT_EQ(test.app.summaries().State().layout.head.name, "None");
  EXPECT_EQ(test.app.summaries().State().layout.left_out, -12.5);
  EXPECT_NE(account->Revision(), revision);

  ASSERT_TRUE(test.app.summarySheet().Open());
  typed.name = "dropped";
  test.app.summarySheet().Read(typed);
  test.app.sheets().CancelOpen();
  EXPECT_EQ(test.app.sheets().Current(), Sheet::None);
  EXPECT_EQ(account->selectedAccountSummary()->name(), "None");
}

}  // namespace
}  // namespace tallyfold

#include <gtest/gtest.h>

#include <algorithm>

#include "app/test_application.h"

namespace tallyfold {
namespace {

TEST(SummaryTab, ShowsTheSelectedSummaryAsTheEntriesAreNow) {
  TestApplication test;
  EXPECT_TRUE(test.app.Summaries().summaries.empty());
  EXPECT_FALSE(test.app.AccountSummary_Select(0));
  EXPECT_EQ(test.app.AccountSummary_Add(), nullptr);

  const auto account = test.AddAccount("A");
  EXPECT_EQ(test.app.Summaries().selected_row, 0);
  ASSERT_TRUE(test.app.AccountSummary_Select(1));
  EXPECT_EQ(test.app.Summaries().layout.head.name, "All Entries, Month To Date");
  test.front_end.changed.clear();
  test.AddDebit(12.5);
  EXPECT_EQ(std::ranges::count(test.front_end.changed, Area::Summary), 1);
  EXPECT_EQ(test.app.Summaries().layout.total.total, -12.5);

  const auto revision = account->Revision();
  test.ambient.clock.SetLocal({2004, 4, 1, 0, 0, 1});
  EXPECT_EQ(test.app.Summaries().layout.head.first, 20040401);
  EXPECT_EQ(account->Revision(), revision) << "looking leaves nothing to save";
  EXPECT_FALSE(test.app.AccountSummary_Select(12));

  test.app.Account_Deselect();
  EXPECT_TRUE(test.app.Summaries().summaries.empty());
  EXPECT_EQ(test.app.Summaries().layout.head.name, "");
}

TEST(SummaryTab, GivesEverySummaryANameOfItsOwnAndKeepsTheLast) {
  TestApplication test;
  const auto account = test.AddAccount("A");
  EXPECT_EQ(test.app.AccountSummary_Add()->name(), "Untitled Summary");
  const auto second = test.app.AccountSummary_Add();
  EXPECT_EQ(second->name(), "Untitled Summary 2");
  EXPECT_EQ(account->selectedAccountSummary(), second);
  second->setShowChecks(1);
  for (const char* name : {"Untitled Summary 2 Copy", "Untitled Summary 2 Copy 2"}) {
    account->selectAccountSummary(second.get());
    const auto copy = test.app.AccountSummary_Duplicate();
    EXPECT_EQ(copy->name(), name);
    EXPECT_EQ(copy->showChecks(), 1);
  }
  EXPECT_FALSE(test.app.AccountSummary_Rename(" \t"));
  EXPECT_TRUE(test.app.AccountSummary_Rename(" first"));
  EXPECT_EQ(test.app.Summaries().summaries[1]->name(), " first");
  EXPECT_EQ(test.app.Summaries().selected_row, 1);

  while (account->accountSummaries().size() > 1) ASSERT_TRUE(test.app.AccountSummary_Remove());
  EXPECT_TRUE(test.alerts.Requests().empty());
  EXPECT_FALSE(test.app.AccountSummary_Remove());
  EXPECT_EQ(test.alerts.Requests().size(), 1U);
  EXPECT_EQ(test.app.Summaries().summaries.size(), 1U);
}

TEST(SummarySheet, ShowsItsResultWhileTheAccountStaysAsItIs) {
  TestApplication test;
  EXPECT_FALSE(test.app.AccountSummarySheet_Open());
  const auto account = test.AddAccount("A");
  test.AddDebit(12.5);
  const auto revision = account->Revision();
  ASSERT_TRUE(test.app.AccountSummarySheet_Open());
  const AccountSummarySheetState& sheet = test.app.SummarySheet();
  EXPECT_EQ(sheet.result.total.total, -12.5);
  EXPECT_FALSE(sheet.days_are_enabled);
  EXPECT_EQ(sheet.date_ranges.size(), 17U);
  EXPECT_EQ(test.app.AccountSummary_Add(), nullptr);
  EXPECT_FALSE(test.app.AccountSummary_Remove());

  sheet.options->setDateRangeStyle(20);
  sheet.options->setEndDate(20040306);
  sheet.options->setName(" ");
  test.app.AccountSummarySheet_OptionsChanged();
  EXPECT_TRUE(sheet.days_are_enabled);
  EXPECT_EQ(sheet.result.total.total, 0.0);
  EXPECT_FALSE(test.app.AccountSummarySheet_OK()) << "without a name";
  EXPECT_EQ(account->Revision(), revision);
  EXPECT_EQ(test.app.Summaries().layout.total.total, -12.5);
  test.app.AccountSummarySheet_Populate();
  EXPECT_EQ(sheet.options->name(), " Custom...");
  sheet.options->setName("None");
  sheet.options->setShowDebits(false);
  test.front_end.refuses = true;
  EXPECT_FALSE(test.app.AccountSummarySheet_OK());
  test.front_end.refuses = false;
  ASSERT_TRUE(test.app.AccountSummarySheet_OK());
  EXPECT_FALSE(sheet.is_open);
  EXPECT_EQ(test.app.Summaries().layout.head.name, "None");
  EXPECT_EQ(test.app.Summaries().layout.left_out, -12.5);
  EXPECT_NE(account->Revision(), revision);

  ASSERT_TRUE(test.app.AccountSummarySheet_Open());
  test.app.SummarySheet().options->setName("dropped");
  test.app.CancelOpenSheet();
  EXPECT_EQ(test.app.OpenSheet(), Sheet::None);
  EXPECT_EQ(account->selectedAccountSummary()->name(), "None");
}

}  // namespace
}  // namespace tallyfold

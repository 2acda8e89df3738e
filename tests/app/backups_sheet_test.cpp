#include "app/shell/backups_sheet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>

#include "app/accounts/account_selection.h"
#include "app/face/sheet_slot.h"
#include "app/shell/application_lock.h"
#include "app/test_application.h"
#include "model/account.h"
#include "storage/accounts_store.h"

namespace tallyfold {
namespace {

using Kind = EntryDifference::Kind;

TEST(BackupsSheet, TellsWhatDiffersButNothingOfWhatIsLocked) {
  TestApplication test;
  auto& app = test.app;
  const auto other = test.AddAccount("B");
  const auto account = test.AddAccount("A");
  const auto changed = test.AddDebit(1.0, "Lunch");
  const auto gone = test.AddDebit(2.0, "Tea");
  test.AddDebit(3.0, "Stays");
  ASSERT_TRUE(app.backups().BackUpNow());
  account->RemoveEntry(gone.get());
  changed->SetDescription("Dinner");
  changed->SetDate(20040302);
  test.AddDebit(4.0, "New");
  other->SetPassword("y");
  other->setAuthenticated(false);

  auto& sheet = app.backupsSheet();
  ASSERT_TRUE(sheet.Open());
  EXPECT_EQ(sheet.State().rows.front().kind, "Kept copy");
  EXPECT_FALSE(sheet.State().comparison);
  test.loop.AdvanceBy(BackupsSheet::kBeforeComparison);
  ASSERT_TRUE(sheet.State().comparison);
  ASSERT_EQ(sheet.State().comparison->accounts.size(), 2U);
  const AccountDifference& hidden = sheet.State().comparison->accounts[0];
  EXPECT_TRUE(hidden.is_locked && hidden.entries.empty() && hidden.added == 0);
  const AccountDifference& shown = sheet.State().comparison->accounts[1];
  EXPECT_EQ(shown.added, 1U);
  EXPECT_EQ(shown.changed, 1U);
  EXPECT_EQ(shown.gone, 1U);
  EXPECT_EQ(sheet.State().selected_account, 1);
  const auto& lines = sheet.State().lines;
  ASSERT_EQ(lines.size(), 4U);
  const auto was = std::ranges::find_if(lines, &BackupsSheetState::Line::is_former);
  ASSERT_NE(was, lines.end());
  EXPECT_EQ(was->description.text, "Lunch");
  EXPECT_EQ((was - 1)->description.text, "Dinner");
  sheet.SelectAccount(0);
  EXPECT_TRUE(sheet.State().lines.empty());
  EXPECT_EQ(sheet.State().nothing, "The account is locked.");

  // A backup that another password protects tells nothing at all.
  AccountsStore::AccountsOfFile backup{{account}, "former"};
  EXPECT_TRUE(CompareWithNow(backup, app.desk().accounts(), "").is_locked);
  EXPECT_FALSE(CompareWithNow(backup, app.desk().accounts(), "former").is_locked);
  sheet.SelectBackup(-1);
  EXPECT_FALSE(sheet.State().restore_is_enabled);
  EXPECT_FALSE(sheet.Restore());
  sheet.SelectBackup(0);
  // Gone meanwhile.
  const std::string path =
      app.accountsStore().Paths().data_folder + '/' + sheet.State().rows.front().name;
  const std::string content = test.files.Content(path).value();
  test.files.Remove(path);
  EXPECT_FALSE(sheet.Restore());
  EXPECT_TRUE(sheet.State().problem);
  test.files.AddFile(path, content);
  sheet.SelectBackup(0);
  EXPECT_FALSE(sheet.State().problem);
  test.alerts.Answer("Restore");
  EXPECT_TRUE(sheet.Restore());
  EXPECT_FALSE(sheet.State().is_open);
  EXPECT_TRUE(app.sheets().IsFree());

  app.applicationLock().setPassword("x");
  test.loop.AdvanceBy(std::chrono::minutes(1));  // so that it is the newest
  ASSERT_TRUE(app.backups().BackUpNow() && sheet.Open());
  test.alerts.Answer("Restore");
  EXPECT_TRUE(sheet.Restore());
  EXPECT_EQ(app.sheets().Current(), Sheet::Authentication);
  EXPECT_EQ(app.selection().WindowTitle(), "Tallyfold:  No Account Selected");
}

}  // namespace
}  // namespace tallyfold

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <algorithm>

#include "app/accounts/account_editing.h"
#include "app/commands/command.h"
#include "app/desk.h"
#include "app/face/sheet_slot.h"
#include "app/shell/backups_sheet.h"
#include "app/shell/preferences_sheet.h"
#include "desktop/test_window.h"
#include "model/account.h"
#include "storage/accounts_store.h"
#include "storage/preferences.h"

namespace tallyfold::desktop {
namespace {

TEST(PreferenceSheets, SettingsOfEveryPageAreTakenByOKAndDroppedByCancel) {
  TestWindow test(ExampleAccounts());
  ASSERT_TRUE(test.Launch());
  LDGRController& app = test.program->app();
  const LDGRPreferences& stored = app.desk().preferences();
  const auto choose = [&test](const char* name, int index) {
    test.Find<QComboBox>(name)->setCurrentIndex(index);
  };
  const auto page = [&test] { return test.Find<QListWidget>("preferencesSheet_TabView"); };
  const auto go_to = [&](const char* tab) {
    for (int row = 0; row < page()->count() && app.preferencesSheet().State().tab != tab; ++row) {
      page()->setCurrentRow(row);
    }
    EXPECT_EQ(app.preferencesSheet().State().tab, tab);
  };

  ASSERT_TRUE(app.preferencesSheet().Open());
  test.Settle();
  // What no field changes comes through as it is stored, and each setting has a field.
  for (const auto& field : LDGRPreferences::Fields()) {
    std::string name(field.key);
    if (name == "version") continue;
    if (const auto part = name.find("Color_"); part != std::string::npos) name.resize(part + 5);
    EXPECT_NE(test.FindWidget(("preferencesSheet_" + name).c_str()), nullptr) << name;
  }
  choose("preferencesSheet_selectWhichFieldFirstWhenAddingEntries", 2);
  test.Find<QCheckBox>("preferencesSheet_entryRemoveConfirm")->click();
  go_to("schedules");
  choose("preferencesSheet_scheduleLookAheadType", 1);
  go_to("files");
  EXPECT_EQ(test.Find<QComboBox>("preferencesSheet_QIFExportEncoding")->currentText(),
            QLatin1String("Unicode (UTF-8)"));
  choose("preferencesSheet_QIFExportDateFormat", 3);
  test.Fill("preferencesSheet_backupInterval", "0x");
  test.Click("preferencesSheet_OK_Button");
  ASSERT_EQ(app.sheets().Current(), Sheet::Preferences);
  EXPECT_EQ(app.preferencesSheet().State().problem->field, "preferencesSheet_backupInterval");
  EXPECT_EQ(test.FocusName(), QLatin1String("preferencesSheet_backupInterval"));
  EXPECT_EQ(test.Find<QLineEdit>("preferencesSheet_backupInterval")->text(), QLatin1String("0x"));
  test.Fill("preferencesSheet_backupInterval", "12");

  go_to("security");
  test.Fill("preferencesSheet_Password_Field", "abc");
  EXPECT_FALSE(test.FindWidget("preferencesSheet_OK_Button")->isEnabled());
  const auto is_told = [&test] {
    return !test.FindWidget("preferencesSheet_PasswordAgain_Field")
                ->accessibleDescription()
                .isEmpty();
  };
  EXPECT_FALSE(is_told()) << "the other is still to be typed";
  const int security = page()->currentRow();
  page()->setCurrentRow(0);
  test.Wait(std::chrono::milliseconds(1));
  EXPECT_EQ(page()->currentRow(), security);
  EXPECT_TRUE(is_told());
  EXPECT_EQ(test.FocusName(), QLatin1String("preferencesSheet_Password_Field"));
  test.Fill("preferencesSheet_PasswordAgain_Field", "abc");
  test.Click("preferencesSheet_OK_Button");
  ASSERT_EQ(app.sheets().Current(), Sheet::None);
  EXPECT_EQ(stored.GetSelectWhichFieldFirstWhenAddingEntries(), 2);
  EXPECT_FALSE(stored.GetEntryRemoveConfirm());
  EXPECT_EQ(stored.GetScheduleLookAheadType(), 1);
  EXPECT_EQ(stored.GetBackupInterval(), 12);
  EXPECT_FLOAT_EQ(stored.GetPauseBetweenSpokenEntries(), 1.8F);
  EXPECT_EQ(app.accountsStore().password(), "abc");

  const std::string before = stored.GetQIFExportDateFormat();
  ASSERT_TRUE(app.preferencesSheet().Open());
  test.Settle();
  choose("preferencesSheet_QIFExportDateFormat", 5);
  test.Find<QCheckBox>("preferencesSheet_useEllipses")->click();
  const bool used = stored.GetUseEllipses();
  test.Key(Qt::Key_Escape);
  EXPECT_EQ(app.sheets().Current(), Sheet::None);
  EXPECT_EQ(stored.GetQIFExportDateFormat(), before);
  EXPECT_EQ(stored.GetUseEllipses(), used);
}

TEST(PreferenceSheets, TypesOfAnAccountAreAddedRenamedAndTakenOutOfUse) {
  TestWindow test(ExampleAccounts());
  ASSERT_TRUE(test.Launch());
  LDGRController& app = test.program->app();
  ASSERT_TRUE(app.accountSheet().Account_Edit());
  test.Settle();
  test.Find<QListWidget>("accountEditSheet_TabView")->setCurrentRow(1);
  const auto& state = app.accountSheet().State();
  const auto& types = state.typed.types;
  constexpr const char* kTable = "accountEditSheet_Types_Table";
  ASSERT_EQ(static_cast<std::size_t>(test.Rows(kTable)), types.size());
  EXPECT_EQ(test.Row(kTable, 0), QLatin1String("Check|Check|4|"));
  // One that entries have stays out of use and can come back, one that none has is to go.
  const auto bring_back = [&test] {
    return test.FindWidget("accountEditSheet_Types_BringBack_Button");
  };
  EXPECT_FALSE(bring_back()->isEnabled());
  test.ClickRow(kTable, 0);
  test.Click("accountEditSheet_Types_Remove_Button");
  EXPECT_EQ(test.Row(kTable, 0), QLatin1String("Check|Check|4|out of use"));
  test.Click(bring_back());
  EXPECT_TRUE(types[0].is_active);
  test.ClickRow(kTable, 2);
  const std::string gone = types[2].name;
  test.Key(Qt::Key_Delete);
  EXPECT_TRUE(test.Row(kTable, 2).endsWith(QLatin1String("||goes with OK")));
  test.Click("accountEditSheet_Types_Add_Button");
  test.Type("Groceries");
  test.Key(Qt::Key_Return);
  // There is one already; the row is there for another name.
  test.Key(Qt::Key_Return);
  EXPECT_EQ(app.sheets().Current(), Sheet::AccountEdit);
  EXPECT_EQ(state.problem->row, 3);
  test.Find<QLineEdit>("accountEditSheet_Types_Table_Cell_Field")->selectAll();
  test.Type("Prize");
  test.Key(Qt::Key_Return);
  ASSERT_EQ(types[3].name, "Prize");
  test.Key(Qt::Key_Right);
  test.Key(Qt::Key_F2);
  auto* kind = test.Find<QComboBox>("accountEditSheet_Types_Table_Cell_Field");
  kind->setCurrentIndex(2);
  emit kind->activated(2);
  test.Settle();
  EXPECT_TRUE(types[3].is_deposit);
  auto* deposit = test.Find<QComboBox>("accountEditSheet_DefaultDepositType_PopUp");
  deposit->setCurrentText(QStringLiteral("Prize"));
  test.Find<QListWidget>("accountEditSheet_TabView")->setCurrentRow(3);
  test.Click("accountEditSheet_ToFroms_Style_2_Button");
  test.Click("accountEditSheet_ToFroms_Add_Button");
  test.Type("Baker");
  test.Click("accountEditSheet_OK_Button");
  ASSERT_EQ(app.sheets().Current(), Sheet::None);
  const LDGRAccount& account = *app.desk().SelectedAccount();
  ASSERT_NE(account.GetDefaultDepositType(), nullptr);
  EXPECT_EQ(account.GetDefaultDepositType()->GetName(), "Prize");
  ASSERT_FALSE(account.Tos_Specific().empty());
  EXPECT_EQ(account.Tos_Specific().back(), "Baker");
  EXPECT_TRUE(std::ranges::none_of(account.GetTypes(),
                                   [&gone](const auto& each) { return each->GetName() == gone; }));
}

TEST(PreferenceSheets, SamplesFollowWhatIsChosenAndTheWindowFollowsOK) {
  TestWindow test(ExampleAccounts());
  ASSERT_TRUE(test.Launch());
  LDGRController& app = test.program->app();
  ASSERT_TRUE(app.preferencesSheet().Open());
  test.Settle();
  const auto choose = [&test](const char* name, int index) {
    test.Find<QComboBox>(name)->setCurrentIndex(index);
  };
  // From anywhere in the sheet, page by page.
  for (int i = 0; i < 3; ++i) test.Key(Qt::Key_PageDown, Qt::ControlModifier);
  ASSERT_EQ(app.preferencesSheet().State().tab, "formats");
  EXPECT_EQ(test.Row("preferencesSheet_Formats_Table", 0),
            QLatin1String("02/22/26|-$1,890.00|2/22, today, 1890, 1,890.00"));
  choose("preferencesSheet_dateFormat", 1);
  choose("preferencesSheet_amountFormat", 1);
  EXPECT_EQ(test.Row("preferencesSheet_Formats_Table", 1),
            QLatin1String("2026-12-31|$2450.00|12/31, 20261231, 2450, 2000+450"));
  test.Key(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(test.Row("preferencesSheet_Sample_Table", 4),
            QLatin1String("2026-02-24|Week 8|Corner Market|-$66.20|$2725.58"));
  EXPECT_TRUE(test.Row("entry_Table", 22).startsWith(QLatin1String("02/24/26")));
  app.preferencesSheet().SelectTab("speech");
  test.Click("preferencesSheet_SayExample_Button");
  ASSERT_FALSE(test.speech.Heard().empty());
  EXPECT_EQ(test.speech.Heard().back(), app.preferencesSheet().State().spoken_example);
  test.Click("preferencesSheet_OK_Button");
  EXPECT_TRUE(test.Row("entry_Table", 22).startsWith(QLatin1String("2026-02-24")));
}

TEST(PreferenceSheets, BackupsAreComparedAndRestored) {
  TestWindow test(ExampleAccounts());
  ASSERT_TRUE(test.Launch());
  LDGRController& app = test.program->app();
  const LDGRAccount& account = *app.desk().SelectedAccount();
  ASSERT_TRUE(Order(app, "Backups_Open"));
  test.Settle();
  constexpr const char* kList = "backupsSheet_Backups_Table";
  const int before = test.Rows(kList);
  test.Click("backupsSheet_BackUpNow_Button");
  EXPECT_EQ(test.Rows(kList), before + 1);
  EXPECT_FALSE(test.TextOf("backupsSheet_Done").isEmpty());
  // Where one is chosen, Return closes and brings nothing back.
  test.ClickRow(kList, 0);
  test.Key(Qt::Key_Return);
  ASSERT_EQ(app.sheets().Current(), Sheet::None);

  test.ClickRow("entry_Table", 4);
  test.Key(Qt::Key_Delete);
  test.Click("entryRemoveConfirm_OK_Button");
  const std::size_t left = account.GetEntries().size();
  ASSERT_TRUE(Order(app, "Backups_Open"));
  test.Settle();
  EXPECT_EQ(test.Rows("backupsSheet_Entries_Table"), 0);
  test.Wait(BackupsSheet::kBeforeComparison);
  EXPECT_EQ(test.Row("backupsSheet_Accounts_Table", 0), QLatin1String("Joint checking|||1"));
  ASSERT_EQ(test.Rows("backupsSheet_Entries_Table"), 1);
  EXPECT_TRUE(test.Row("backupsSheet_Entries_Table", 0).startsWith(QLatin1String("Gone|01/08/26")));
  test.alerts.Answer("Restore");
  test.Click("backupsSheet_Restore_Button");
  EXPECT_EQ(app.sheets().Current(), Sheet::None);
  EXPECT_EQ(app.desk().SelectedAccount()->GetEntries().size(), left + 1);

  ASSERT_TRUE(Order(app, "About_Open"));
  test.Settle();
  EXPECT_TRUE(
      test.TextOf("aboutSheet_AccountsFile").contains(QLatin1String(TestWindow::kAccountsFile)));
  test.Click("aboutSheet_License_Button");
  EXPECT_TRUE(test.Find<QPlainTextEdit>("aboutSheet_License_Text")
                  ->toPlainText()
                  .startsWith(QLatin1String("MIT License")));
  test.Key(Qt::Key_Escape);
  EXPECT_EQ(app.sheets().Current(), Sheet::None);
}

}  // namespace
}  // namespace tallyfold::desktop

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTableWidget>
#include <algorithm>

#include "app/accounts/account_editing.h"
#include "app/desk.h"
#include "app/face/sheet_slot.h"
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
  const auto type = [&test](const char* name, const char* text) {
    auto* field = test.Find<QLineEdit>(name);
    field->setFocus();
    field->selectAll();
    test.Type(text);
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
  choose("preferencesSheet_QIFExportDateFormat", 3);
  type("preferencesSheet_backupInterval", "0x");
  test.Click("preferencesSheet_OK_Button");
  ASSERT_EQ(app.sheets().Current(), Sheet::Preferences);
  EXPECT_EQ(app.preferencesSheet().State().problem->field, "preferencesSheet_backupInterval");
  EXPECT_EQ(test.FocusName(), QLatin1String("preferencesSheet_backupInterval"));
  EXPECT_EQ(test.Find<QLineEdit>("preferencesSheet_backupInterval")->text(), QLatin1String("0x"));
  type("preferencesSheet_backupInterval", "12");

  go_to("security");
  type("preferencesSheet_Password_Field", "abc");
  type("preferencesSheet_PasswordAgain_Field", "abd");
  EXPECT_FALSE(test.FindWidget("preferencesSheet_OK_Button")->isEnabled());
  EXPECT_FALSE(
      test.FindWidget("preferencesSheet_PasswordAgain_Field")->accessibleDescription().isEmpty());
  const int security = page()->currentRow();
  page()->setCurrentRow(0);
  test.Wait(std::chrono::milliseconds(1));
  EXPECT_EQ(page()->currentRow(), security);
  EXPECT_EQ(test.FocusName(), QLatin1String("preferencesSheet_Password_Field"));
  type("preferencesSheet_PasswordAgain_Field", "abc");
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
  auto* table = test.Find<QTableWidget>("accountEditSheet_Types_Table");
  const auto& typed = app.accountSheet().State().typed;
  const int count = table->rowCount();
  ASSERT_EQ(static_cast<std::size_t>(count), typed.types.size());
  const std::string gone = typed.types[0].name;
  table->setCurrentCell(0, 0);
  test.Click("accountEditSheet_Types_Remove_Button");
  ASSERT_EQ(table->rowCount(), count - 1);
  test.Click("accountEditSheet_Types_Add_Button");
  test.Type("Prize");
  test.Find<QComboBox>("accountEditSheet_Types_Kind_PopUp")->setCurrentIndex(2);
  ASSERT_EQ(typed.types.back().name, "Prize");
  EXPECT_TRUE(typed.types.back().is_deposit);
  auto* deposit = test.Find<QComboBox>("accountEditSheet_DefaultDepositType_PopUp");
  deposit->setCurrentIndex(deposit->count() - 1);
  test.Find<QListWidget>("accountEditSheet_TabView")->setCurrentRow(3);
  test.Click("accountEditSheet_Tos_Table_Add_Button");
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

}  // namespace
}  // namespace tallyfold::desktop

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
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
  test.Type("Prize");
  test.Key(Qt::Key_Return);
  EXPECT_EQ(app.sheets().Current(), Sheet::AccountEdit);
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

}  // namespace
}  // namespace tallyfold::desktop

#include "app/shell/preferences_sheet.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "app/test_application.h"
#include "storage/accounts_store.h"

namespace tallyfold {
namespace {

// Notes what is in force when it is to show everything anew.
struct SheetTest : testing::Test, TestApplication, PreferencesSheet::Host, WindowHooks {
  SheetTest() {
    announcer.Set(&front_end);
    window.Set(this);
  }
  void PreferencesChanged() override {
    log += "in force: " + std::to_string(app.desk().preferences().GetBackupInterval()) + ", '" +
           app.accountsStore().password() + "'" + (app.sheets().IsFree() ? "; " : ", still open; ");
  }
  void FocusPasswordField() override { log += "password field; "; }

  std::string log;
  Announcer announcer;
  WindowHooksSlot window;
  PreferencesSheet sheet{*this,
                         app.desk(),
                         app.ledger(),
                         app.accountsStore(),
                         app.balanceField(),
                         window,
                         app.sheets(),
                         speech,
                         loop,
                         announcer};
};

TEST_F(SheetTest, AsksForEverythingAnewOnceTheSettingsAreInForce) {
  struct Case {
    const char* what;
    std::function<void(SheetTest&)> steps;
    const char* log;
  } const cases[] = {
      {"cancel", [](SheetTest& test) { test.sheet.Cancel(); }, ""},
      {"refused by its field",
       [](SheetTest& test) {
         test.front_end.refuses = true;
         EXPECT_FALSE(test.sheet.OK());
         test.front_end.refuses = false;
       },
       ""},
      {"refused value",
       [](SheetTest& test) {
         EXPECT_FALSE(test.sheet.Read("backupInterval", -5));
         EXPECT_FALSE(test.sheet.OK());
         EXPECT_TRUE(test.sheet.Read("backupInterval", 30));
         EXPECT_TRUE(test.sheet.OK());
       },
       "in force: 30, ''; "},
      {"passwords that differ",
       [](SheetTest& test) {
         EXPECT_TRUE(test.sheet.SelectTab(PreferencesSheet::kSecurityTab));
         test.sheet.preferencesSheet_PasswordValidate("secret", "secre");
         EXPECT_FALSE(test.sheet.OK());
         EXPECT_FALSE(test.sheet.SelectTab(PreferencesSheet::kFirstTab));
         test.loop.FinishEvent();
         test.sheet.preferencesSheet_PasswordValidate("secret", "secret");
         EXPECT_TRUE(test.sheet.OK());
       },
       "password field; in force: 30, 'secret'; "},
      {"put away before the field takes the focus",
       [](SheetTest& test) {
         EXPECT_TRUE(test.sheet.SelectTab(PreferencesSheet::kSecurityTab));
         test.sheet.preferencesSheet_PasswordValidate("other", "");
         EXPECT_FALSE(test.sheet.SelectTab(PreferencesSheet::kFirstTab));
         test.sheet.Cancel();
         test.loop.FinishEvent();
       },
       ""},
      {"nothing changed", [](SheetTest& test) { EXPECT_TRUE(test.sheet.OK()); },
       "in force: 30, 'secret'; "},
  };
  for (const Case& each : cases) {
    log.clear();
    ASSERT_TRUE(sheet.Open()) << each.what;
    each.steps(*this);
    sheet.Cancel();
    EXPECT_EQ(log, each.log) << each.what;
    EXPECT_TRUE(app.sheets().IsFree()) << each.what;
  }
  app.accountsStore().setAuthenticated(false);
  EXPECT_FALSE(sheet.Open() || sheet.OK());
}

TEST_F(SheetTest, ShowsTheLastEntriesAsTheSettingsWouldHaveThem) {
  const auto account = AddAccount("A");
  for (const std::int32_t day : {6, 1, 5, 2, 4, 3}) AddDebit(day)->SetDate(20040300 + day);
  const auto sample = [this] {
    std::string text;
    for (const PreferencesSample::Row& row : sheet.State().sample.rows) {
      text += row.date.text + ' ' + row.amount.text + ' ' + row.balance.text + ", ";
    }
    for (const PreferencesSample::Format& format : sheet.State().sample.formats) {
      text += format.date + ' ' + format.amount + (format.look.is_italic ? " to come, " : ", ");
    }
    return text;
  };
  ASSERT_TRUE(sheet.Open());
  EXPECT_EQ(sample(),
            "03/02/04 -$2.00 -$3.00, 03/03/04 -$3.00 -$6.00, 03/04/04 -$4.00 -$10.00, "
            "03/05/04 -$5.00 -$15.00, 03/06/04 -$6.00 -$21.00, "
            "03/07/04 -$1,890.00, 12/31/04 $2,450.00 to come, 03/07/04 -$300.00, ");
  EXPECT_TRUE(sheet.Read("dateFormat", 2));
  EXPECT_TRUE(sample().starts_with("March 2, 2004 -$2.00 -$3.00, ")) << sample();
  sheet.Cancel();
  account->SetPassword("y");
  account->setAuthenticated(false);
  ASSERT_TRUE(sheet.Open());
  EXPECT_TRUE(sheet.State().sample.rows.empty());
}

}  // namespace
}  // namespace tallyfold

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

}  // namespace
}  // namespace tallyfold

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <utility>

#include "app/test_application.h"

namespace tallyfold {
namespace {

using Texts = std::vector<std::string>;

TEST(ApplicationLock, SavesThenClearsTheScreenThenAsks) {
  TestApplication test;
  test.AddAccount("A");
  const auto b = test.AddAccount("B");
  auto& app = test.app;
  app.setPassword("Secret");
  app.setPassword(std::nullopt);
  EXPECT_EQ(app.password(), "Secret");
  EXPECT_FALSE(app.authenticate(std::nullopt));
  EXPECT_TRUE(app.authenticate("wrong"));  // it is not locked yet
  app.lock();
  EXPECT_GE(test.files.Changes().size(), 2U);
  EXPECT_FALSE(app.authenticated());
  EXPECT_EQ(app.SelectedAccount(), nullptr);
  EXPECT_EQ(app.WindowTitle(), "Tallyfold:  No Account Selected");
  EXPECT_EQ(app.OpenSheet(), Sheet::Authentication);
  EXPECT_TRUE(app.accountsDrawer().Rows().empty());
  EXPECT_TRUE(app.AccountMenu().empty());
  EXPECT_EQ(app.Commands(), CommandsState());

  // Nothing gets past it or writes.
  test.files.ForgetChanges();
  app.lock();
  app.Account_Select(b);
  EXPECT_EQ(app.SelectedAccount(), nullptr);
  EXPECT_FALSE(app.Entry_Debit() || app.Account_Add() || app.PreferencesSheet_Open());
  EXPECT_FALSE(app.authenticate("wrong") || app.Accounts_Save() || app.Preferences_Save());
  EXPECT_FALSE(app.Accounts_SaveToFilePath("/home/user/copy"));
  app.CancelOpenSheet();
  EXPECT_EQ(app.OpenSheet(), Sheet::Authentication);
  EXPECT_TRUE(test.files.Changes().empty());

  for (const auto& [typed, is_right] :
       {std::pair{"", false}, {"secret", false}, {"Secret ", false}, {"Secret", true}}) {
    app.authenticationSheet_ValidatePassword(typed);
    EXPECT_EQ(app.authenticationSheet().ok_is_enabled, is_right) << typed;
    if (is_right) break;
    EXPECT_FALSE(app.authenticationSheet_OK()) << typed;
  }
  // The preference counts, not what was shown before.
  app.preferences().SetSelectedAccountNumber(1);
  EXPECT_TRUE(app.authenticationSheet_OK());
  EXPECT_EQ(app.OpenSheet(), Sheet::None);
  EXPECT_EQ(app.SelectedAccount(), nullptr);  // only after the current event
  test.loop.FinishEvent();
  EXPECT_EQ(app.SelectedAccount()->GetName(), "A");
}

// Notes what a password sheet does to the window, and which sheet is open meanwhile.
struct SheetLog final : FrontEnd, MainWindow {
  explicit SheetLog(LDGRController& controller) : app(controller) {
    app.SetFrontEnd(this);
    app.SetMainWindow(this);
  }
  void BringToFront() override { Note("front"); }
  void RememberFirstResponder() override { Note("remember"); }
  void RestoreFirstResponder() override { Note("restore"); }
  void SetContentsEnabled(bool are_enabled) override { Note(are_enabled ? "enable" : "disable"); }
  bool EndEditing(Sheet) override {
    Note("end editing");
    return false;
  }
  void FocusAccountsTable() override { Note("accounts table"); }
  void Changed(Area area) override {
    if (area == Area::Sheet) Note("sheet");
  }
  void Note(std::string line) {
    if (app.OpenSheet() != Sheet::None) line += " (open)";
    lines.push_back(std::move(line));
  }

  LDGRController& app;
  Texts lines;
};

TEST(PasswordSheets, TakeTheFocusAndGiveItBack) {
  const Texts opening = {"front", "remember", "disable", "sheet (open)"};
  const Texts closing = {"enable (open)", "end editing (open)", "sheet", "restore"};
  TestApplication test;
  auto& app = test.app;
  const auto account = test.AddAccount("A");
  SheetLog log(app);
  app.setPassword("x");
  app.lock();
  EXPECT_EQ(std::exchange(log.lines, {}), opening);
  app.authenticationSheet_ValidatePassword("x");
  app.authenticationSheet_OK();
  EXPECT_EQ(std::exchange(log.lines, {}), closing);
  test.loop.FinishEvent();
  EXPECT_EQ(std::exchange(log.lines, {}), Texts{"accounts table"});

  account->SetPassword("y");
  app.Account_Lock(account);
  app.Account_Select(account);
  EXPECT_EQ(std::exchange(log.lines, {}), opening);
  app.accountAuthenticationSheet_Cancel_Button();
  EXPECT_EQ(log.lines, closing);
}

TEST(ApplicationLock, EndsTheProgramWhenItIsCancelled) {
  TestApplication test;
  test.app.setPassword("x");
  test.app.lock();
  test.app.authenticationSheet_Cancel();
  EXPECT_EQ(test.host.Requests(), Texts{"terminate"});
  EXPECT_FALSE(test.app.authenticated());
}

// Three accounts, of which the first two have passwords and are locked, the third is selected.
struct LockedAccounts : TestApplication {
  LockedAccounts() : a(AddAccount("A")), b(AddAccount("B")), c(AddAccount("C")) {
    for (const auto& account : {a, b}) {
      account->SetPassword("key");
      account->setAuthenticated(false);
    }
  }

  std::shared_ptr<LDGRAccount> a;
  std::shared_ptr<LDGRAccount> b;
  std::shared_ptr<LDGRAccount> c;
};

TEST(AccountPasswords, AreAskedForAndLeaveTheSelectionUntilGiven) {
  LockedAccounts test;
  auto& app = test.app;
  app.Account_Select(test.a);
  EXPECT_EQ(app.AccountAuthenticationSheet().title,
            "The Account \"A\" is protected by a password.");
  EXPECT_EQ(app.SelectedAccount(), test.c);
  app.AccountAuthenticationSheet_Cancel();
  EXPECT_EQ(app.SelectedAccount(), test.c);

  app.Account_Select(test.b);
  EXPECT_EQ(app.authenticatingAccount(), test.b);
  for (const auto& [typed, is_right] : {std::pair{"Key", false}, {"key", true}}) {
    app.accountAuthenticationSheet_ValidatePassword(typed);
    EXPECT_EQ(app.AccountAuthenticationSheet().ok_is_enabled, is_right);
    EXPECT_EQ(app.accountAuthenticationSheet_OK_Button(), is_right);
    EXPECT_EQ(app.SelectedAccount(), is_right ? test.b : test.c);
  }

  app.Account_Lock(test.b);
  app.Account_Lock(nullptr);
  EXPECT_EQ(app.SelectedAccount(), nullptr);
  app.Account_Select(test.a);
  app.AccountAuthenticationSheet_Cancel();
  EXPECT_EQ(app.SelectedAccount(), nullptr);
}

TEST(AccountPasswords, AskedForWithoutNeedBlockFurtherOnesUntilASheetCloses) {
  LockedAccounts test;
  auto& app = test.app;
  app.Account_Authenticate(nullptr);
  EXPECT_EQ(app.authenticatingAccount(), nullptr);
  app.Account_Authenticate(test.c);
  EXPECT_EQ(app.authenticatingAccount(), test.c);
  EXPECT_EQ(app.OpenSheet(), Sheet::None);
  app.Account_Select(test.a);
  EXPECT_EQ(app.OpenSheet(), Sheet::None);
  EXPECT_EQ(app.SelectedAccount(), test.c);
  app.AccountAuthenticationSheet_Close();
  app.Account_Select(test.a);
  EXPECT_EQ(app.OpenSheet(), Sheet::AccountAuthentication);
}

TEST(TypedFields, GoWhereTheyBelong) {
  LockedAccounts test;
  auto& app = test.app;
  using Field = LDGRController::TypedField;
  app.controlTextDidChange(Field::Search, "food");
  EXPECT_EQ(test.c->entryFilterData().StringValue(), "food");
  app.Account_Select(test.a);
  app.controlTextDidChange(Field::AccountPassword, "key");
  EXPECT_TRUE(app.AccountAuthenticationSheet().ok_is_enabled);
  app.AccountAuthenticationSheet_Cancel();
  app.PreferencesSheet_Open();
  app.controlTextDidChange(Field::PreferencesPassword, "x");
  EXPECT_TRUE(app.preferencesSheet().passwords_differ);
  app.controlTextDidChange(Field::PreferencesPasswordAgain, "x");
  EXPECT_FALSE(app.preferencesSheet().passwords_differ);
  app.PreferencesSheet_OK();
  app.lock();
  app.controlTextDidChange(Field::Password, "x");
  EXPECT_TRUE(app.authenticationSheet().ok_is_enabled);
}

TEST(PreferencesSheet, PutsItsCopyInForceAtOKAlone) {
  TestApplication test;
  auto& app = test.app;
  test.AddAccount("A");
  for (const bool ok : {false, true}) {
    ASSERT_TRUE(app.PreferencesSheet_Open());
    EXPECT_FALSE(app.PreferencesSheet_Open());
    app.PreferencesSheet_SetField("backupInterval", "30");
    app.PreferencesSheet_DefaultAppearanceSettings();
    app.preferencesSheet_PasswordValidate("x", "x");
    test.front_end.refuses = true;
    EXPECT_FALSE(app.PreferencesSheet_OK());
    test.front_end.refuses = false;
    ok ? void(app.PreferencesSheet_OK()) : app.PreferencesSheet_Cancel();
    EXPECT_EQ(app.preferences().GetBackupInterval(), ok ? 30 : 7);
    EXPECT_EQ(app.preferences().GetDebitColor_Red(), ok ? 0.0F : 1.0F);
    EXPECT_EQ(app.password(), ok ? "x" : "");
  }
  EXPECT_EQ(app.preferences().GetSelectedAccountNumber(), 1);
  EXPECT_TRUE(app.accountsDrawer().State().is_open);
  EXPECT_TRUE(app.authenticated());
}

TEST(PreferencesSheet, KeepsItsSecurityTabWhileThePasswordsDiffer) {
  struct Window final : MainWindow {
    void FocusPasswordField() override { ++focused; }
    int focused = 0;
  } window;
  TestApplication test;
  auto& app = test.app;
  app.SetMainWindow(&window);
  app.PreferencesSheet_Open();
  EXPECT_TRUE(app.PreferencesSheet_SelectTab("security"));
  app.preferencesSheet_PasswordValidate("x", "");
  EXPECT_FALSE(app.PreferencesSheet_SelectTab("general"));
  EXPECT_EQ(app.preferencesSheet().tab, "security");
  EXPECT_EQ(window.focused, 0);
  test.loop.FinishEvent();
  EXPECT_EQ(window.focused, 1);
  EXPECT_FALSE(app.PreferencesSheet_OK());
  app.preferencesSheet_PasswordValidate("x", "x");
  EXPECT_TRUE(app.PreferencesSheet_SelectTab("general"));
}

}  // namespace
}  // namespace tallyfold

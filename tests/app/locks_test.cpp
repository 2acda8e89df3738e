#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <utility>

#include "app/accounts/account_editing.h"
#include "app/accounts/account_passwords.h"
#include "app/accounts/account_selection.h"
#include "app/accounts/accounts_drawer.h"
#include "app/desk.h"
#include "app/entries/entry_editing.h"
#include "app/face/sheet_slot.h"
#include "app/shell/application_lock.h"
#include "app/shell/menus.h"
#include "app/shell/preferences_sheet.h"
#include "app/shell/saving.h"
#include "app/shell/text_editing.h"
#include "app/shell/undo.h"
#include "app/test_application.h"

namespace tallyfold {
namespace {

using Texts = std::vector<std::string>;

TEST(ApplicationLock, SavesThenClearsTheScreenThenAsks) {
  TestApplication test;
  test.AddAccount("A");
  const auto b = test.AddAccount("B");
  auto& app = test.app;
  app.applicationLock().setPassword("Secret");
  app.applicationLock().setPassword(std::nullopt);
  EXPECT_EQ(app.applicationLock().password(), "Secret");
  EXPECT_FALSE(app.applicationLock().authenticate(std::nullopt));
  EXPECT_TRUE(app.applicationLock().authenticate("wrong"));  // it is not locked yet
  app.applicationLock().lock();
  EXPECT_GE(test.files.Changes().size(), 2U);
  EXPECT_FALSE(app.applicationLock().authenticated());
  EXPECT_EQ(app.desk().SelectedAccount(), nullptr);
  EXPECT_EQ(app.selection().WindowTitle(), "Tallyfold:  No Account Selected");
  EXPECT_EQ(app.sheets().Current(), Sheet::Authentication);
  EXPECT_TRUE(app.accountsDrawer().Rows().empty());
  EXPECT_TRUE(app.menus().AccountMenu().empty());
  EXPECT_FALSE(app.menus().AreOn());

  // Nothing gets past it or writes.
  test.files.ForgetChanges();
  app.applicationLock().lock();
  app.selection().Account_Select(b);
  EXPECT_EQ(app.desk().SelectedAccount(), nullptr);
  EXPECT_FALSE(app.entries().New(EntryKind::Debit) || app.accountSheet().Account_Add() ||
               app.preferencesSheet().Open());
  EXPECT_FALSE(app.applicationLock().authenticate("wrong") || app.saving().Accounts_Save() ||
               app.saving().Preferences_Save());
  EXPECT_FALSE(app.saving().Accounts_SaveToFilePath("/home/user/copy"));
  app.sheets().CancelOpen();
  EXPECT_EQ(app.sheets().Current(), Sheet::Authentication);
  EXPECT_TRUE(test.files.Changes().empty());

  for (const auto& [typed, is_right] :
       {std::pair{"", false}, {"secret", false}, {"Secret ", false}, {"Secret", true}}) {
    app.applicationLock().authenticationSheet_ValidatePassword(typed);
    EXPECT_EQ(app.applicationLock().State().ok_is_enabled, is_right) << typed;
    if (is_right) break;
    EXPECT_FALSE(app.applicationLock().OK()) << typed;
  }
  // The preference counts, not what was shown before.
  app.desk().preferences().SetSelectedAccountNumber(1);
  EXPECT_TRUE(app.applicationLock().OK());
  EXPECT_EQ(app.sheets().Current(), Sheet::None);
  EXPECT_EQ(app.desk().SelectedAccount(), nullptr);  // only after the current event
  test.loop.FinishEvent();
  EXPECT_EQ(app.desk().SelectedAccount()->GetName(), "A");
}

// Notes what a password sheet does to the window, and which sheet is open meanwhile.
struct SheetLog final : FrontEnd, WindowHooks {
  explicit SheetLog(LDGRController& controller) : app(controller) {
    app.SetFrontEnd(this);
    app.SetWindowHooks(this);
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
    if (app.sheets().Current() != Sheet::None) line += " (open)";
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
  app.applicationLock().setPassword("x");
  app.applicationLock().lock();
  EXPECT_EQ(std::exchange(log.lines, {}), opening);
  app.applicationLock().authenticationSheet_ValidatePassword("x");
  app.applicationLock().OK();
  EXPECT_EQ(std::exchange(log.lines, {}), closing);
  test.loop.FinishEvent();
  EXPECT_EQ(std::exchange(log.lines, {}), Texts{"accounts table"});

  account->SetPassword("y");
  app.accountPasswords().Account_Lock(account);
  app.selection().Account_Select(account);
  EXPECT_EQ(std::exchange(log.lines, {}), opening);
  app.accountPasswords().AccountAuthenticationSheet_Cancel();
  EXPECT_EQ(log.lines, closing);
}

TEST(PasswordSheets, TellThatWhatCanBeUndoneIsAnotherMatter) {
  TestApplication test;
  auto& app = test.app;
  const auto account = test.AddAccount("A");
  test.AddDebit(1.0);
  account->SetPassword("y");
  app.applicationLock().setPassword("x");
  const struct {
    std::function<void()> run;
    std::size_t lines;
  } cases[] = {
      {[&] { app.applicationLock().lock(); }, 0},
      {[&] {
         app.applicationLock().authenticationSheet_ValidatePassword("x");
         app.applicationLock().OK();
       },
       2},
      {[&] { app.accountPasswords().Account_Lock(account); }, 0},
      {[&] {
         app.selection().Account_Select(account);
         app.accountPasswords().accountAuthenticationSheet_ValidatePassword("y");
         app.accountPasswords().AccountAuthenticationSheet_OK();
       },
       2},
  };
  for (const auto& c : cases) {
    test.front_end.changed.clear();
    c.run();
    test.loop.FinishEvent();
    EXPECT_EQ(app.undo().UndoLines().size(), c.lines);
    EXPECT_EQ(std::ranges::count(test.front_end.changed, Area::History), 1);
  }
}

TEST(ApplicationLock, EndsTheProgramWhenItIsCancelled) {
  TestApplication test;
  test.app.applicationLock().setPassword("x");
  test.app.applicationLock().lock();
  test.app.applicationLock().Cancel();
  EXPECT_EQ(test.host.Requests(), Texts{"terminate"});
  EXPECT_FALSE(test.app.applicationLock().authenticated());
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
  app.selection().Account_Select(test.a);
  EXPECT_EQ(app.accountPasswords().State().title, "The Account \"A\" is protected by a password.");
  EXPECT_EQ(app.desk().SelectedAccount(), test.c);
  app.accountPasswords().AccountAuthenticationSheet_Cancel();
  EXPECT_EQ(app.desk().SelectedAccount(), test.c);

  app.selection().Account_Select(test.b);
  EXPECT_EQ(app.accountPasswords().authenticatingAccount(), test.b);
  for (const auto& [typed, is_right] : {std::pair{"Key", false}, {"key", true}}) {
    app.accountPasswords().accountAuthenticationSheet_ValidatePassword(typed);
    EXPECT_EQ(app.accountPasswords().State().ok_is_enabled, is_right);
    EXPECT_EQ(app.accountPasswords().AccountAuthenticationSheet_OK(), is_right);
    EXPECT_EQ(app.desk().SelectedAccount(), is_right ? test.b : test.c);
  }

  app.accountPasswords().Account_Lock(test.b);
  app.accountPasswords().Account_Lock(nullptr);
  EXPECT_EQ(app.desk().SelectedAccount(), nullptr);
  app.selection().Account_Select(test.a);
  app.accountPasswords().AccountAuthenticationSheet_Cancel();
  EXPECT_EQ(app.desk().SelectedAccount(), nullptr);
}

TEST(AccountPasswords, AskedForWithoutNeedBlockFurtherOnesUntilASheetCloses) {
  LockedAccounts test;
  auto& app = test.app;
  app.accountPasswords().Account_Authenticate(nullptr);
  EXPECT_EQ(app.accountPasswords().authenticatingAccount(), nullptr);
  app.accountPasswords().Account_Authenticate(test.c);
  EXPECT_EQ(app.accountPasswords().authenticatingAccount(), test.c);
  EXPECT_EQ(app.sheets().Current(), Sheet::None);
  app.selection().Account_Select(test.a);
  EXPECT_EQ(app.sheets().Current(), Sheet::None);
  EXPECT_EQ(app.desk().SelectedAccount(), test.c);
  app.accountPasswords().AccountAuthenticationSheet_Close();
  app.selection().Account_Select(test.a);
  EXPECT_EQ(app.sheets().Current(), Sheet::AccountAuthentication);
}

TEST(TypedFields, GoWhereTheyBelong) {
  LockedAccounts test;
  auto& app = test.app;
  using Field = TextEditing::TypedField;
  app.textEditing().controlTextDidChange(Field::search_Field, "food");
  EXPECT_EQ(test.c->entryFilterData().StringValue(), "food");
  app.selection().Account_Select(test.a);
  app.textEditing().controlTextDidChange(Field::accountAuthenticationSheet_Password, "key");
  EXPECT_TRUE(app.accountPasswords().State().ok_is_enabled);
  app.accountPasswords().AccountAuthenticationSheet_Cancel();
  app.preferencesSheet().Open();
  app.textEditing().controlTextDidChange(Field::preferencesSheet_Password, "x");
  EXPECT_TRUE(app.preferencesSheet().State().passwords_differ);
  app.textEditing().controlTextDidChange(Field::preferencesSheet_PasswordAgain, "x");
  EXPECT_FALSE(app.preferencesSheet().State().passwords_differ);
  app.preferencesSheet().OK();
  app.applicationLock().lock();
  app.textEditing().controlTextDidChange(Field::authenticationSheet_Password, "x");
  EXPECT_TRUE(app.applicationLock().State().ok_is_enabled);
}

TEST(PreferencesSheet, PutsItsCopyInForceAtOKAlone) {
  TestApplication test;
  auto& app = test.app;
  test.AddAccount("A");
  for (const bool ok : {false, true}) {
    ASSERT_TRUE(app.preferencesSheet().Open());
    EXPECT_FALSE(app.preferencesSheet().Open());
    app.preferencesSheet().Read("backupInterval", 30);
    app.preferencesSheet().DefaultAppearanceSettings();
    app.preferencesSheet().preferencesSheet_PasswordValidate("x", "x");
    test.front_end.refuses = true;
    EXPECT_FALSE(app.preferencesSheet().OK());
    test.front_end.refuses = false;
    ok ? void(app.preferencesSheet().OK()) : app.preferencesSheet().Cancel();
    EXPECT_EQ(app.desk().preferences().GetBackupInterval(), ok ? 30 : 7);
    EXPECT_EQ(app.desk().preferences().GetDebitColor_Red(), ok ? 0.0F : 1.0F);
    EXPECT_EQ(app.applicationLock().password(), ok ? "x" : "");
  }
  EXPECT_EQ(app.desk().preferences().GetSelectedAccountNumber(), 1);
  EXPECT_TRUE(app.accountsDrawer().State().is_open);
  EXPECT_TRUE(app.applicationLock().authenticated());
}

}  // namespace
}  // namespace tallyfold

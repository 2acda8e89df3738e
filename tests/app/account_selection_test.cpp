#include "app/accounts/account_selection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>

#include "app/accounts/account_editing.h"
#include "app/desk.h"
#include "app/fake_refresh_host.h"
#include "app/test_application.h"
#include "model/current_account.h"
#include "storage/accounts_store.h"

namespace tallyfold {
namespace {

TEST(AccountSelection, SetsTheCurrentAccountTheTitleAndThePreference) {
  TestApplication test;
  auto& app = test.app;
  const auto a = test.AddAccount("A");
  const auto b = test.AddAccount("B");
  EXPECT_EQ(CurrentAccount(), b.get());
  EXPECT_EQ(app.selection().WindowTitle(), "Tallyfold:  B");
  const auto entry = test.AddDebit(1.0);

  app.selection().Account_Select(a);
  EXPECT_EQ(CurrentAccount(), a.get());
  EXPECT_EQ(app.desk().preferences().GetSelectedAccountNumber(), 1);
  EXPECT_EQ(app.desk().SelectedEntry(), nullptr);

  test.front_end.changed.clear();
  app.selection().Account_Select(nullptr);
  EXPECT_EQ(CurrentAccount(), nullptr);
  EXPECT_EQ(app.selection().WindowTitle(), "Tallyfold:  No Account Selected");
  EXPECT_EQ(app.desk().preferences().GetSelectedAccountNumber(), 1);
  const auto& changed = test.front_end.changed;
  for (const Area area : {Area::SelectedAccount, Area::Registers, Area::Balance, Area::EntryButtons,
                          Area::EntryTypeMenu, Area::Schedules, Area::Summary}) {
    EXPECT_NE(std::find(changed.begin(), changed.end(), area), changed.end());
  }
}

// Notes what a selection asks, with the account that is selected by then.
struct AskedSelection : testing::Test, TestApplication, AccountSelection::Host {
  AskedSelection() {
    announcer.Set(&front_end);
    AddAccount("Open");
    AddAccount("Locked")->SetPassword("secret");
    app.desk().accounts()[1]->setAuthenticated(false);
    app.selection().Account_Deselect();
  }
  void StopSpeech() override { log += "silence; "; }
  void Account_Authenticate(const std::shared_ptr<LDGRAccount>& account) override {
    log += "password of " + account->GetName() + "; ";
  }
  bool Account_Add() override { return Note("new account"); }
  void ShowSummary() override { Note("summary"); }
  void ShowInTables(const std::shared_ptr<LDGRAccount>& account) override {
    EXPECT_EQ(account, app.desk().SelectedAccount());
    Note("tables");
  }
  void FillCurrentRegister() override { Note("register"); }
  void ClearSearch() override { Note("no search"); }
  void SettleRecovery() override { Note("settle"); }
  void ReplaceScheduleReminderTimer() override { log += "timer; "; }
  bool Note(const std::string& what) {
    const auto account = app.desk().SelectedAccount();
    log += what + (account != nullptr ? " of " + account->GetName() : "") + "; ";
    return true;
  }

  std::string log;
  Announcer announcer;
  WindowHooksSlot window;
  FakeRefreshHost refresh_host;
  Refresh refresh{refresh_host, announcer};
  AccountSelection alone{*this, app.desk(), app.preferencesStore(), window, refresh, announcer};
};

TEST_F(AskedSelection, HasEverythingFollowInOrder) {
  const auto open = app.desk().accounts()[0];
  const auto locked = app.desk().accounts()[1];
  constexpr const char* kNothing = "summary; tables; no search; timer; ";
  constexpr const char* kOpen = "summary of Open; tables of Open; register of Open; timer; ";
  struct Case {
    const char* what;
    std::function<void()> order;
    std::string log;
    const char* title;
  } const cases[] = {
      {"open", [&] { alone.Account_Select(open); }, std::string("silence; ") + kOpen, "Open"},
      {"locked", [&] { alone.Account_Select(locked); }, "silence; password of Locked; timer; ",
       "Open"},
      {"none", [&] { alone.Account_Select(nullptr); }, std::string("silence; silence; ") + kNothing,
       "No Account Selected"},
      {"at launch", [&] { alone.Accounts_PostLoad(); }, std::string("settle; silence; ") + kOpen,
       "Open"},
      {"in a locked application",
       [&] {
         app.accountsStore().setAuthenticated(false);
         alone.Account_Select(open);
       },
       std::string("silence; silence; ") + kNothing, "No Account Selected"},
      {"at the launch of one", [&] { alone.Accounts_PostLoad(); }, "", "No Account Selected"},
      {"at the first launch",
       [&] {
         app.accountsStore().setAuthenticated(true);
         app.accountsStore().RemoveAccount(open.get());
         app.accountsStore().RemoveAccount(locked.get());
         alone.Accounts_PostLoad();
       },
       "settle; new account; ", "No Account Selected"},
  };
  for (const Case& each : cases) {
    log.clear();
    each.order();
    EXPECT_EQ(log, each.log) << each.what;
    EXPECT_EQ(alone.WindowTitle(), std::string("Tallyfold:  ") + each.title) << each.what;
  }
}

TEST(AccountSelection, EndsWithTheAccountsItIsAbout) {
  {
    TestApplication test;
    test.AddAccount("A");
    EXPECT_EQ(LDGRController::sharedController(), &test.app);
    EXPECT_TRUE(test.app.accountsStore().Accounts_Load());
    EXPECT_EQ(CurrentAccount(), nullptr);
    EXPECT_EQ(test.app.desk().SelectedAccount(), nullptr);
    test.AddAccount("B");
  }
  EXPECT_EQ(CurrentAccount(), nullptr);
  EXPECT_EQ(LDGRController::sharedController(), nullptr);
}

TEST(NewAccounts, GetANameAndANumberNoOtherHas) {
  struct Case {
    std::vector<std::string> names;
    const char* expected;
  } const cases[] = {
      {{}, "Tallyfold 1"},
      {{"Tallyfold 1"}, "Tallyfold 2"},
      {{"Tallyfold 1", "Tallyfold 3"}, "Tallyfold 4"},
      {{"Joint", "Joint"}, "Tallyfold 3"},
  };
  for (const Case& c : cases) {
    TestApplication test;
    for (const auto& name : c.names) test.AddAccount(name);
    test.app.accountSheet().Account_Add();
    EXPECT_EQ(test.app.accountSheet().State().typed.name, c.expected);
    test.app.accountSheet().AccountEditSheet_Cancel();
    EXPECT_EQ(test.app.desk().accounts().size(), c.names.size());
  }
}

}  // namespace
}  // namespace tallyfold

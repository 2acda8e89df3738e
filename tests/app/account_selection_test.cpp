#include "app/accounts/account_selection.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "app/accounts/account_editing.h"
#include "app/desk.h"
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

TEST(AccountSelection, AfterLoadingShowsTheRememberedAccountOrTheFirst) {
  TestApplication test;
  const auto a = test.AddAccount("A");
  const auto b = test.AddAccount("B");
  for (const auto& [number, account] : {std::pair{2, b}, {1, a}, {77, a}, {-1, a}}) {
    test.app.selection().Account_Deselect();
    test.app.desk().preferences().SetSelectedAccountNumber(number);
    test.app.selection().Accounts_PostLoad();
    EXPECT_EQ(test.app.desk().SelectedAccount(), account) << number;
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

#include "app/views/reconcile_tab.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "app/desk.h"
#include "app/entries/entry_editing.h"
#include "app/shell/saving.h"
#include "app/shell/tabs.h"
#include "app/test_application.h"
#include "app/views/balance_field.h"
#include "app/views/registers.h"
#include "filters/register_search.h"
#include "ledger/transfer_links.h"

namespace tallyfold {
namespace {

TEST(BalanceField, ShowsTheBalanceOfItsMode) {
  TestApplication test;
  test.app.balanceField().AccountBalance_PopUp_Populate(2);
  EXPECT_EQ(test.app.balanceField().State().text, "");
  const auto account = test.AddAccount("A");
  account->SetStartingBalance(100.0);
  const auto food = test.AddDebit(30.0, "Food");
  food->SetCleared(true);
  const auto rent = test.AddDebit(50.0, "Rent");
  rent->SetDate(20040401);
  test.app.search().Search_Field("Food");
  test.app.search().Search();
  struct Case {
    std::int32_t chosen;
    std::int32_t mode;
    std::string text;
  } const cases[] = {
      {0, 0, "$20.00"},  {1, 1, "$70.00"}, {2, 2, "$70.00"}, {3, 3, "-$50.00"},
      {4, 4, "-$30.00"}, {5, 5, ""},       {6, 0, "$20.00"}, {-1, 0, "$20.00"},
  };
  for (const Case& c : cases) {
    test.app.balanceField().AccountBalance_PopUp(c.chosen);
    const BalanceFieldState state = test.app.balanceField().State();
    EXPECT_EQ(static_cast<std::int32_t>(state.mode), c.mode);
    EXPECT_EQ(state.text, c.text) << c.chosen;
    EXPECT_EQ(state.mode_items.size(), 6U);
  }
  test.app.balanceField().AccountBalance_PopUp(5);
  test.front_end.changed.clear();
  test.app.desk().SelectEntry(food);
  EXPECT_TRUE(std::ranges::find(test.front_end.changed, Area::Balance) !=
              test.front_end.changed.end());
  EXPECT_EQ(test.app.balanceField().State().text, "$70.00");
  // The mode is kept with the preferences.
  EXPECT_TRUE(test.app.saving().Preferences_Save());
  EXPECT_EQ(test.app.desk().preferences().GetBalanceMode(), 5);
}

TEST(ReconcileTab, StoresTheStatementBalanceAndShowsWhatIsMissing) {
  TestApplication test;
  EXPECT_FALSE(test.app.reconcileTab().StatementBalance_EndEditing(1.0));
  EXPECT_FALSE(test.app.reconcileTab().State().is_enabled);
  const auto account = test.AddAccount("A");
  EXPECT_EQ(test.app.reconcileTab().State().difference, "Balanced");
  const auto food = test.AddDebit(30.0);
  EXPECT_TRUE(test.app.reconcileTab().StatementBalance_EndEditing(-30.004));
  EXPECT_EQ(account->statementBalance(), -30.0);
  const double inf = std::numeric_limits<double>::infinity();
  for (const double bad : {inf, inf - inf, 1e13}) {
    EXPECT_FALSE(test.app.reconcileTab().StatementBalance_EndEditing(bad));
  }
  EXPECT_EQ(test.app.reconcileTab().State().difference, "-$30.00");
  EXPECT_EQ(test.app.reconcileTab().State().explanation->entries, EntryList{food});
  test.app.entries().TurnClearedOver(food);
  EXPECT_EQ(test.app.reconcileTab().State().difference, "Balanced");
  EXPECT_FALSE(test.app.reconcileTab().State().explanation);
}

TEST(ClearedMarks, AreTurnedOverByKeyRowByRowAndApartForTheHalvesOfATransfer) {
  TestApplication test;
  const auto other = test.AddAccount("B");
  const auto account = test.AddAccount("A");
  const auto first = test.AddDebit(1.0);
  const auto half = test.AddTransferTo(*other, 2.0);
  const auto last = test.AddDebit(3.0);
  account->setReconcileFilterType(81);  // unresolved entries
  test.app.tabs().Select(Tab::Reconcile);
  auto& rows = test.app.registers().reconcileDataSource();
  rows.SelectRow(0);
  ASSERT_EQ(test.app.desk().SelectedEntry(), first);
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(test.app.reconcileTab().TurnClearedOverAndMoveOn());
  EXPECT_TRUE(first->GetCleared() && half->GetCleared() && last->GetCleared());
  EXPECT_FALSE(test.app.transferLinks().Transfer_LinkedEntry(half.get())->GetCleared());
  // Nothing left the filter yet; the last row stays selected, and its mark goes over again.
  EXPECT_EQ(rows.GetEntries().size(), 3U);
  EXPECT_TRUE(test.app.reconcileTab().TurnClearedOverAndMoveOn());
  EXPECT_FALSE(last->GetCleared());
  test.app.tabs().ReconcileTab_Enter();
  EXPECT_EQ(rows.GetEntries(), EntryList{last});
  test.app.desk().SelectEntry(nullptr);
  EXPECT_FALSE(test.app.reconcileTab().TurnClearedOverAndMoveOn());
}

}  // namespace
}  // namespace tallyfold

#include "app/shell/tabs.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "app/accounts/account_selection.h"
#include "app/test_application.h"
#include "app/views/registers.h"
#include "filters/filter_types.h"
#include "filters/register_search.h"

namespace tallyfold {
namespace {

TEST(Tabs, DoWhatEnteringEachIsFor) {
  using Areas = std::vector<Area>;
  constexpr std::int32_t kUnresolved = 81;
  struct Case {
    const char* identifier;
    bool with_account;
    RegisterKind shown;
    RegisterKind current;
    std::size_t rows;
    std::int32_t filter;
    Areas told;
  } const cases[] = {
      {"entry",
       true,
       RegisterKind::Entry,
       RegisterKind::Entry,
       1,
       filter_type::kGeneral,
       {Area::Balance}},
      {"entry",
       false,
       RegisterKind::Entry,
       RegisterKind::Entry,
       0,
       filter_type::kNone,
       {Area::Balance}},
      {"reconcile",
       true,
       RegisterKind::Reconcile,
       RegisterKind::Reconcile,
       1,
       kUnresolved,
       {Area::ReconcileBalances}},
      {"reconcile",
       false,
       RegisterKind::Reconcile,
       RegisterKind::Reconcile,
       0,
       filter_type::kNone,
       {Area::ReconcileBalances}},
      {"schedule",
       true,
       RegisterKind::Other,
       RegisterKind::Entry,
       1,
       filter_type::kGeneral,
       {Area::Schedules}},
      {"summary",
       true,
       RegisterKind::Other,
       RegisterKind::Entry,
       1,
       filter_type::kGeneral,
       {Area::Summary}},
      {"summary",
       false,
       RegisterKind::Other,
       RegisterKind::Entry,
       0,
       filter_type::kNone,
       {Area::Summary}},
      {"security", true, RegisterKind::Entry, RegisterKind::Entry, 1, filter_type::kGeneral, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.identifier);
    TestApplication test;
    auto& app = test.app;
    test.AddAccount("A")->setReconcileFilterType(kUnresolved);
    test.AddDebit(1.0);
    app.tabs().EntryTab_Enter();
    if (!c.with_account) app.selection().Account_Deselect();
    test.front_end.changed.clear();
    const std::size_t heard = test.speech.Heard().size();

    app.tabs().willSelectTabViewItem(c.identifier);
    EXPECT_EQ(app.tabs().ShownRegister(), c.shown);
    EXPECT_EQ(app.registers().CurrentKind(), c.current);
    EXPECT_EQ(app.registers().currentTableDataSource().GetEntries().size(), c.rows);
    if (c.shown != RegisterKind::Other) {
      EXPECT_EQ(app.search().State().menu_type, c.filter);
    }
    const auto& changed = test.front_end.changed;
    for (const Area area :
         {Area::Balance, Area::ReconcileBalances, Area::Schedules, Area::Summary}) {
      EXPECT_EQ(std::ranges::count(changed, area) > 0, std::ranges::count(c.told, area) > 0)
          << static_cast<int>(area);
    }
    EXPECT_GT(test.speech.Heard().size(), heard);
  }
}

TEST(Tabs, MarkTheMenuItemOfTheRegisterThatWasChosen) {
  TestApplication test;
  auto& app = test.app;
  app.tabs().reconcile_MenuItem();
  EXPECT_EQ(app.tabs().State(), (TabsState{Tab::Reconcile, Tab::Reconcile, false, true}));
  app.tabs().Select(Tab::Schedule);
  EXPECT_EQ(app.tabs().State(), (TabsState{Tab::Schedule, Tab::Schedule, false, true}));
  app.tabs().entry_MenuItem();
  EXPECT_EQ(app.tabs().State(), (TabsState{Tab::Entry, Tab::Entry, true, false}));
}

TEST(Tabs, DropASearchThatHasNotRun) {
  TestApplication test;
  test.AddAccount("A");
  test.app.search().Search_Field("food");
  test.app.tabs().Select(Tab::Reconcile);
  test.front_end.changed.clear();
  test.loop.AdvanceBy(std::chrono::seconds(1));
  EXPECT_TRUE(test.front_end.changed.empty());
}

}  // namespace
}  // namespace tallyfold

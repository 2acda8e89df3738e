#include "app/face/refresh.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

#include "app/fake_refresh_host.h"

namespace tallyfold {
namespace {

struct ToldAreas final : FrontEnd {
  explicit ToldAreas(FakeRefreshHost& asked) : host(asked) {}
  void Changed(Area area) override {
    host.is_told = true;
    areas.push_back(area);
  }
  FakeRefreshHost& host;
  std::vector<Area> areas;
};

TEST(Refreshing, BringsEverythingUpToDateBeforeItTellsAnybody) {
  const auto numbered = [](std::int32_t number) {
    auto entry = std::make_shared<LDGRAccountEntry>();
    entry->SetNumber(number);
    return entry;
  };
  const EntryList both = {numbered(1), numbered(2)};
  using enum Area;
  using Areas = std::vector<Area>;
  const Areas figures = {Accounts, Balance, ReconcileBalances, Summary};
  const Areas entries = {Accounts,          EntryButtons,  Balance,
                         ReconcileBalances, EntryTypeMenu, Summary};
  const Areas all = {Accounts,        SelectedAccount, AccountMenu,       EntryButtons,  Schedules,
                     ScheduleButtons, Balance,         ReconcileBalances, EntryTypeMenu, Summary};
  struct Case {
    const char* what;
    bool has_live_filters;
    std::function<void(Refresh&)> order;
    const char* asked;
    Areas told;
  } const cases[] = {
      {"saved", false, [&](Refresh& refresh) { refresh.EntrySaved(both[0], true); },
       "saved 1; accounts; select 1; hidden? 1 new; ", entries},
      {"changed, with live filters", true,
       [&](Refresh& refresh) { refresh.EntrySaved(both[0], false); },
       "end search; rows; accounts; select 1; hidden? 1; ", entries},
      {"several", false, [&](Refresh& refresh) { refresh.EntriesAdded(both); },
       "saved 2; accounts; select 2; hidden? 2 new; ", entries},
      {"removed", true, [](Refresh& refresh) { refresh.EntryRemoved(); }, "rows; accounts; ",
       entries},
      {"imported",
       false,
       [](Refresh& refresh) { refresh.ImportEnded(); },
       "end search; rows; ",
       {EntryButtons, Balance, ReconcileBalances, EntryTypeMenu, Summary}},
      {"marked", true, [](Refresh& refresh) { refresh.EntryMarked(); }, "redraw; accounts; ",
       figures},
      {"schedules",
       true,
       [](Refresh& refresh) { refresh.SchedulesChanged(); },
       "schedules; ",
       {Schedules, ScheduleButtons}},
      {"accounts",
       true,
       [](Refresh& refresh) { refresh.AccountsChanged(); },
       "accounts; redraw; schedules; ",
       {Accounts, SelectedAccount, AccountMenu, Schedules, ScheduleButtons, Balance,
        ReconcileBalances, EntryTypeMenu, Summary}},
      {"midnight",
       true,
       [](Refresh& refresh) { refresh.DayChanged(); },
       "rows; accounts; schedules; ",
       {Accounts, EntryButtons, Schedules, ScheduleButtons, Balance, ReconcileBalances, Summary}},
      {"undone", false, [](Refresh& refresh) { refresh.StepTaken(); },
       "rows; accounts; redraw; schedules; ", all},
      {"undone, with live filters", true, [](Refresh& refresh) { refresh.StepTaken(); },
       "end search; rows; accounts; redraw; schedules; ", all},
      {"found",
       true,
       [&](Refresh& refresh) { refresh.ShowEntry(both[1]); },
       "select 2; hidden? 2; ",
       {}},
      {"locked",
       true,
       [](Refresh& refresh) { refresh.Locked(); },
       "accounts; redraw; schedules; ",
       {Accounts, Schedules, ScheduleButtons, History}},
  };
  for (const Case& each : cases) {
    FakeRefreshHost host;
    host.has_live_filters = each.has_live_filters;
    ToldAreas told(host);
    Announcer announcer;
    announcer.Set(&told);
    Refresh refresh(host, announcer);
    each.order(refresh);
    EXPECT_EQ(host.log, each.asked) << each.what;
    EXPECT_FALSE(host.was_asked_late) << each.what;
    std::ranges::sort(told.areas);
    EXPECT_EQ(told.areas, each.told) << each.what;
  }
}

TEST(Announcing, TellsEachAreaOnceAnOperationAndBeforeAQuestion) {
  FakeRefreshHost host;
  ToldAreas told(host);
  Announcer announcer;
  announcer.Changed(Area::Tabs);  // to nobody
  announcer.Set(&told);
  announcer.Changed(Area::Balance);
  EXPECT_EQ(told.areas, (std::vector{Area::Balance}));
  {
    const Announcer::Operation outer(announcer);
    {
      const Announcer::Operation inner(announcer);
      announcer.Changed(Area::Search);
      announcer.Changed(Area::Balance);
      announcer.Changed(Area::Search);
    }
    EXPECT_EQ(told.areas.size(), 1U);
    announcer.HandOver();
    EXPECT_EQ(told.areas, (std::vector{Area::Balance, Area::Search, Area::Balance}));
    announcer.Changed(Area::Search);
    EXPECT_EQ(told.areas.size(), 3U);
  }
  EXPECT_EQ(told.areas.size(), 4U);
  EXPECT_EQ(told.areas.back(), Area::Search);
}

}  // namespace
}  // namespace tallyfold

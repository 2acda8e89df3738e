#include "app/shell/tabs.h"

#include <gtest/gtest.h>

#include "app/test_application.h"
#include "filters/filter_types.h"

namespace tallyfold {
namespace {

using Texts = std::vector<std::string>;

struct TabsTest : Tabs::Host, Refresh::Host, FrontEnd {
  std::shared_ptr<LDGRAccount> SelectedAccount() const override { return account; }
  void CancelDelayedSearch() override { log.emplace_back("cancel search"); }
  void SetCurrentRegister(RegisterKind kind) override {
    log.emplace_back(kind == RegisterKind::Entry ? "entries" : "reconcile");
  }
  void GiveCurrentRegister(EntryList entries) override {
    log.push_back("rows " + std::to_string(entries.size()));
  }
  void PopulateForFilter(const LDGRFilter* filter) override {
    log.push_back(filter != nullptr ? filter->GetName() : "no filter");
  }
  void PopulateForFilterType(std::int32_t type) override {
    log.push_back("type " + std::to_string(type));
  }
  void ShowSummary(LDGRAccount* shown) override {
    log.emplace_back(shown != nullptr ? "summary" : "no summary");
  }
  void StopSpeech() override { log.emplace_back("silence"); }
  bool LiveUpdatingFilters() const override { return true; }
  void ReloadRegisters() override {}
  void TakeSavedEntries(const EntryList&) override {}
  void ReloadSchedules() override {}
  void RedrawRegisters() override {}
  void Search_Cancel() override {}
  void SelectEntry(const std::shared_ptr<LDGRAccountEntry>&) override {}
  void TellIfHidden(const std::shared_ptr<LDGRAccountEntry>&, bool) override {}
  void Changed(Area area) override {
    if (area == Area::Balance) log.emplace_back("balance");
    if (area == Area::ReconcileBalances) log.emplace_back("figures");
    if (area == Area::Schedules) log.emplace_back("schedules");
  }

  FakeAmbient ambient;
  std::shared_ptr<LDGRAccount> account;
  Texts log;
  Refresh refresh{*this, *this};
  Tabs tabs{*this, refresh, *this};
};

TEST(Tabs, DoWhatEnteringEachIsFor) {
  auto account = std::make_shared<LDGRAccount>();
  account->AddEntry(std::make_shared<LDGRAccountEntry>());
  account->setReconcileFilterType(81);
  struct Case {
    const char* identifier;
    bool with_account;
    RegisterKind shown;
    Texts log;
  } const cases[] = {
      {"entry",
       true,
       RegisterKind::Entry,
       {"cancel search", "balance", "entries", "rows 1", "General", "type 0", "silence"}},
      {"entry",
       false,
       RegisterKind::Entry,
       {"cancel search", "balance", "entries", "no filter", "type -9999", "silence"}},
      {"reconcile",
       true,
       RegisterKind::Reconcile,
       {"cancel search", "figures", "reconcile", "rows 1", "Unresolved", "type 81", "silence"}},
      {"reconcile",
       false,
       RegisterKind::Reconcile,
       {"cancel search", "figures", "reconcile", "no filter", "type -9999", "silence"}},
      {"schedule", true, RegisterKind::Other, {"schedules", "silence"}},
      {"summary", true, RegisterKind::Other, {"summary", "silence"}},
      {"summary", false, RegisterKind::Other, {"no summary", "silence"}},
      {"security", true, RegisterKind::Entry, {"silence"}},
  };
  for (const Case& c : cases) {
    TabsTest test;
    if (c.with_account) test.account = account;
    test.tabs.willSelectTabViewItem(c.identifier);
    EXPECT_EQ(test.log, c.log) << c.identifier;
    EXPECT_EQ(test.tabs.ShownRegister(), c.shown) << c.identifier;
  }
}

TEST(Tabs, MarkTheMenuItemOfTheRegisterThatWasChosen) {
  TestApplication test;
  auto& app = test.app;
  app.reconcile_MenuItem();
  EXPECT_EQ(app.TabViews(), (TabsState{Tab::Reconcile, Tab::Reconcile, false, true}));
  app.SelectTab(Tab::Schedule);
  EXPECT_EQ(app.TabViews(), (TabsState{Tab::Schedule, Tab::Schedule, false, true}));
  app.entry_MenuItem();
  EXPECT_EQ(app.TabViews(), (TabsState{Tab::Entry, Tab::Entry, true, false}));
}

TEST(Tabs, DropASearchThatHasNotRun) {
  TestApplication test;
  test.AddAccount("A");
  test.app.Search_Field("food");
  test.app.SelectTab(Tab::Reconcile);
  test.front_end.changed.clear();
  test.loop.AdvanceBy(std::chrono::seconds(1));
  EXPECT_TRUE(test.front_end.changed.empty());
}

}  // namespace
}  // namespace tallyfold

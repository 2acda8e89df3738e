// What goes to rows of the current register, beside a window that is played.

#include <gtest/gtest.h>

#include <string>

#include "app/face/sheet_slot.h"
#include "app/views/account_summary_tab.h"
#include "app/views/date_jump.h"
#include "app/views/registers.h"
#include "app/views/shown_entries.h"
#include "fakes/fake_services.h"
#include "filters/filter_types.h"
#include "ledger/ledger_fixture.h"

namespace tallyfold {
namespace {

struct FakeRowsHost final : DateJump::Host, ShownEntries::Host, AccountSummaryTab::Host {
  explicit FakeRowsHost(Registers& shown) : registers(shown) {}

  [[nodiscard]] std::shared_ptr<LDGRFilter> CurrentFilter() const override {
    return account != nullptr ? account->entryFilter() : nullptr;
  }
  [[nodiscard]] bool IsShown(const LDGRAccountEntry* entry) const override {
    return registers.entryDataSource().EntryToRow(entry).has_value();
  }
  void ShowRegister() override { log += "register "; }
  void ShowAllEntries() override {
    log += "all ";
    account->setEntryFilterType(filter_type::kGeneral);
    registers.Reload();
  }

  Registers& registers;
  std::shared_ptr<LDGRAccount> account;
  std::string log;
};

struct CurrentRows : testing::Test, LedgerFixture {
  CurrentRows() {
    AddEntries(*first, {{.number = 2, .date = 20040310, .amount = 7, .check = 12},
                        {.number = 3, .date = 20040310, .amount = 8},
                        {.number = 4, .date = 20040320, .amount = 9}});
    first->GetEntries().front()->SetDate(20040301);
    Select(first);
  }
  void Select(const std::shared_ptr<LDGRAccount>& account) {
    desk.SetSelectedAccount(account);
    host.account = account;
    registers.ShowAccount(account);
    registers.Reload();
  }
  [[nodiscard]] std::int32_t Selected() const {
    return desk.SelectedEntry() != nullptr ? desk.SelectedEntry()->GetNumber() : -1;
  }

  Desk desk{store};
  Announcer announcer;
  SheetSlot sheets{announcer};
  Registers registers{desk, announcer};
  FakeRowsHost host{registers};
  FakeAlerts alerts;
  DateJump jump{host, desk, registers, sheets, announcer};
  ShownEntries shown{host, desk, registers, announcer};
  AccountSummaryTab summaries{host, desk, ledger, alerts, sheets, announcer};
};

TEST_F(CurrentRows, AreGoneToByTheirDay) {
  const struct {
    DateNumber day;
    bool descending;
    std::int32_t number;
  } cases[] = {{20040101, false, 1}, {20040302, false, 2}, {20040310, true, 3},
               {20040311, true, 4},  {20040401, false, 4}, {20040401, true, 4}};
  for (const auto& each : cases) {
    registers.entryDataSource().SortByColumnIdentifier("date", each.descending);
    host.log.clear();
    jump.Open();
    EXPECT_TRUE(jump.State().is_open);
    EXPECT_TRUE(jump.Go(each.day));
    EXPECT_FALSE(jump.State().is_open);
    EXPECT_EQ(Selected(), each.number) << each.day;
    EXPECT_EQ(host.log, "register ");
  }
  first->setEntryFilterType(21);
  registers.Reload();
  EXPECT_FALSE(jump.Go(20040310)) << "no row is shown";
  host.log.clear();
  Select(nullptr);
  jump.Open();
  EXPECT_FALSE(jump.State().is_open || jump.Go(20040310));
  EXPECT_EQ(host.log, "");
}

TEST_F(CurrentRows, AreToldBesideThoseThatAFilterHides) {
  shown.ShowAll();
  EXPECT_EQ(host.log, "") << "none is hidden";
  const struct {
    std::int32_t filter;
    const char* data;
    std::size_t shown;
    const char* text;
  } cases[] = {
      {0, "", 4, ""},
      {15, "12", 1, "The search for '12' hides 3 of 4 entries."},
      {80, "", 0, "The filter 'Resolved' hides all 4 entries."},
  };
  for (const auto& each : cases) {
    first->setEntryFilterType(each.filter);
    first->setEntryFilterData(each.data);
    registers.Reload();
    EXPECT_EQ(shown.State().shown, each.shown);
    EXPECT_EQ(shown.State().hidden, 4 - each.shown);
    EXPECT_EQ(shown.State().hidden_text, each.text);
  }
  first->setEntryFilterData("");
  first->setEntryFilterType(81);
  {
    Change change(ledger, "Step", first);
    change.Edit(first, first->GetEntries()[1]).SetCleared(true);
    change.Close();
  }
  registers.Reload();
  desk.SelectEntry(first->GetEntries()[2]);
  shown.ShowAll();
  EXPECT_EQ(host.log, "all ");
  EXPECT_EQ(registers.entryDataSource().GetEntries().size(), 4U);
  EXPECT_EQ(Selected(), 3);
  Select(nullptr);
  EXPECT_EQ(shown.State().shown + shown.State().hidden, 0U);
}

TEST_F(CurrentRows, AreThoseThatALineOfTheSummaryCounts) {
  // All Entries, Year To Date.
  ASSERT_TRUE(summaries.Select(3));
  ambient.clock.SetLocal({2004, 12, 31});
  summaries.Show();
  EXPECT_EQ(summaries.ShowEntries({SummaryLine::Kind::Total}).size(), 4U);
  EXPECT_EQ(host.log, "register ");
  EXPECT_EQ(Selected(), 4) << "the last of them";
  EXPECT_TRUE(summaries.ShowEntries({SummaryLine::Kind::Period, 99}).empty());
  EXPECT_EQ(host.log, "register ");
  first->setEntryFilterType(80);
  registers.Reload();
  host.log.clear();
  EXPECT_EQ(summaries.ShowEntries({SummaryLine::Kind::Total}).size(), 4U);
  EXPECT_EQ(host.log, "all ");
  EXPECT_EQ(Selected(), 4);
}

}  // namespace
}  // namespace tallyfold

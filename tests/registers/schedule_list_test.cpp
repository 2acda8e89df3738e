#include "registers/schedule_list.h"

#include <gtest/gtest.h>

#include "fakes/fake_ambient.h"
#include "registers/fake_table_host.h"
#include "registers/schedule_dates.h"
#include "registers/schedule_table_view_data.h"
#include "registers/table_log.h"

namespace tallyfold {
namespace {

std::shared_ptr<LDGRAccountSchedule> Schedule(std::int32_t number, DateNumber start,
                                              std::int32_t type) {
  auto schedule = std::make_shared<LDGRAccountSchedule>();
  schedule->SetNumber(number);
  schedule->SetDate(start);
  schedule->SetRepeatIntervalType(type);
  return schedule;
}

TEST(ScheduleList, SaysTheRecurrenceInWords) {
  const FakeAmbient ambient;
  struct Case {
    std::int32_t type;
    std::int32_t every;
    std::int32_t until_type;
    std::int32_t until;
    std::string repeats;
    std::string ends;
  } const cases[] = {
      {0, 1, 1, 0, "Once", "Forever"},
      {3, 5, 2, 12, "Every two weeks", "12 times"},
      {6, 1, 2, 1, "Last day of every month", "1 time"},
      {11, 1, 3, 20041231, "End of every quarter", "Until 12/31/04"},
      {20, 10, 1, 0, "Every 10 days", "Forever"},
      {24, 1, 1, 0, "Every quarter", "Forever"},
      {22, 0, 4, 0, "Once", "Never"},
      {7, 1, -1, 0, "Never", "Never"},
  };
  for (const Case& c : cases) {
    const auto schedule = Schedule(0, 20040307, c.type);
    schedule->SetRepeatInterval(c.every);
    schedule->SetRepeatUntilType(c.until_type);
    schedule->SetRepeatUntil(c.until);
    EXPECT_EQ(RepeatsInWords(*schedule), c.repeats);
    EXPECT_EQ(UntilInWords(*schedule, "%m/%d/%y"), c.ends);
  }
}

TEST(ScheduleList, PutsTheNextFirstAndCountsWhatHasPassed) {
  const FakeAmbient ambient;
  LDGRAccount account;
  const auto once = Schedule(0, 20040301, 0);
  const auto weekly = Schedule(1, 20040208, 2);  // 8, 15, 22, 29 February, 7 March
  weekly->AddCommittedDate(20040208);
  weekly->AddCommittedDate(20040215);
  weekly->SetIsTransfer(true);
  weekly->SetAmount(12.5);
  const auto later = Schedule(2, 20040401, 4);
  for (const auto& schedule : {once, later, weekly}) account.AddSchedule(schedule);

  const LDGRPreferences preferences;
  const TableFormat format{"%Y-%m-%d", preferences};
  ScheduleList schedules = account.GetSchedules();
  SortByNextDate(schedules, false);
  std::vector<std::string> rows;
  for (const auto& schedule : schedules) {
    const auto text = [&](std::string_view column) {
      return CellOfSchedule(&account, *schedule, column, format, 20040307).text;
    };
    rows.push_back(std::to_string(schedule->GetNumber()) + " " + text("next") + " " +
                   text("overdue") + " " + text("type"));
  }
  EXPECT_EQ(rows,
            (std::vector<std::string>{"1 2004-02-22 2 Transfer From", "2 2004-04-01  ", "0 - 1 "}));
}

TEST(ScheduleDates, SayWhatTheyAreTheDatesOf) {
  FakeAmbient ambient;
  const auto schedule = Schedule(1, 20040131, 4);
  schedule->SetToFrom("Owner");
  EXPECT_EQ(DatesHeading(*schedule), "Owner");
  schedule->SetDescription("Rent");
  EXPECT_EQ(DatesHeading(*schedule), "Rent, Owner");
  auto lines = ScheduleDates(*schedule);
  EXPECT_EQ(DatesNote(*schedule, lines),
            "The next twelve dates. Months without a day 31 are left out.");
  EXPECT_EQ(DueDayOf(lines[0], 20040131), DueDay::Today);
  EXPECT_EQ(DueDayOf(lines[0], 20040201), DueDay::Past);
  EXPECT_EQ(DueDayOf(lines[0], 20040130), DueDay::Later);
  EXPECT_EQ(DueDayOf(lines[1], 20990101), DueDay::Later) << "a month without the day";
  schedule->SetUsePrecedingFriday(true);
  EXPECT_NE(DatesNote(*schedule, ScheduleDates(*schedule)).find(" Each is moved to the Friday"),
            std::string::npos);
  lines.resize(1);
  EXPECT_EQ(DatesNote(*schedule, lines), "The last date.");
  EXPECT_EQ(DatesNote(*schedule, {}), "No date is left.");
}

TEST(ScheduleTable, ShowsAndSortsByItsColumns) {
  FakeAmbient ambient;
  ambient.clock.SetLocal({2004, 3, 7, 12, 0, 0});
  FakeTableHost host;
  const auto account = std::make_shared<LDGRAccount>();
  const auto monthly = Schedule(0, 20040201, 4);
  monthly->SetDescription("Rent");
  monthly->SetToFrom("Owner");
  monthly->SetAmount(-890.0);
  const auto weekly = Schedule(1, 20040304, 2);
  weekly->SetDescription("Cake");
  account->AddSchedule(weekly);
  account->AddSchedule(monthly);
  const auto views = std::make_shared<LDGRAccountPreferences>();
  TableState table(DefaultScheduleColumns());
  LDGRScheduleTableViewData rows(host, table);
  rows.ShowAccount(account, views);
  const std::pair<std::string_view, TableCell> cells[] = {
      {"next", {"02/01/04", 20040201.0}},
      {"repeats", {"Every month"}},
      {"until", {"Forever"}},
      {"overdue", {"2", 2.0, TableCell::Alignment::Right}},
      {"type", {""}},
      {"description", {"Rent"}},
      {"toFrom", {"Owner"}},
      {"amount", {"-$890.00", -890.0, TableCell::Alignment::Right}},
      {"nonsense", {}},
      {"date", {}},
  };
  for (const auto& [column, cell] : cells) EXPECT_EQ(rows.tableView(column, 0), cell) << column;
  EXPECT_TRUE(rows.LookOfRow(0).is_overdue);
  EXPECT_FALSE(rows.LookOfRow(2).is_overdue);
  EXPECT_EQ(rows.SelectedSchedule(), monthly);
  rows.ClickedTableColumn("description");  // turns the order over
  EXPECT_EQ(rows.Schedules(), (ScheduleList{monthly, weekly}));
  rows.ClickedTableColumn("description");
  EXPECT_EQ(rows.Schedules(), (ScheduleList{weekly, monthly}));
  EXPECT_EQ(rows.SelectedSchedule(), monthly);
  EXPECT_EQ(table.HighlightedColumn(), "description");
  rows.ClickedTableColumn("until");
  EXPECT_EQ(views->GetSelectedColumnIdentifierForTableIdentifier("schedule"), "description");
  rows.HideTableColumnWithIdentifier("until");
  EXPECT_EQ(table.Columns().size(), 7U);
  TableLog log;
  table.SetShownBy(&log);
  account->AddSchedule(Schedule(2, 20040801, 4));
  rows.Reload();
  EXPECT_EQ(log.Take(), "+0; row 2; ");
  host.is_unlocked = false;
  EXPECT_EQ(rows.numberOfRowsInTableView(), 0U);
}

}  // namespace
}  // namespace tallyfold

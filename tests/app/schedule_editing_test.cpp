#include "app/schedules/schedule_editing.h"

#include <gtest/gtest.h>

#include <limits>

#include "app/commands/command.h"
#include "app/desk.h"
#include "app/schedules/schedules_tab.h"
#include "app/shell/menus.h"
#include "app/test_application.h"
#include "storage/preferences_store.h"

namespace tallyfold {
namespace {

using Texts = std::vector<std::string>;

ScheduleValues Values(EntryKind kind) {
  ScheduleValues values;
  values.kind = kind;
  values.start = 20040401;
  values.amount = 12.345;
  values.to_from = "Owner";
  values.description = "Rent";
  values.type = 1;
  values.repeat_interval_type = 4;
  values.repeat_until_type = 2;
  values.repeat_until = 6;
  return values;
}

// The problem of the sheet; "" when the schedule was added.
std::string Add(LDGRController& app, const ScheduleValues& values) {
  const bool is_open = values.kind == EntryKind::Debit ? app.scheduleSheet().New(EntryKind::Debit)
                       : values.kind == EntryKind::Deposit
                           ? app.scheduleSheet().New(EntryKind::Deposit)
                           : app.scheduleSheet().New(EntryKind::Transfer);
  if (!is_open) return "no sheet";
  app.scheduleSheet().Read(values);
  const bool is_added = app.scheduleSheet().OK();
  std::string problem = TextOf(app.scheduleSheet().State().problem);
  EXPECT_EQ(is_added, problem.empty());
  app.scheduleSheet().Cancel();
  return problem;
}

TEST(ScheduleSheet, StoresSchedulesAsTheirEntriesWillBe) {
  TestApplication test;
  EXPECT_EQ(Add(test.app, Values(EntryKind::Debit)), "no sheet");
  const auto savings = test.AddAccount("Savings");
  EXPECT_EQ(Add(test.app, Values(EntryKind::Transfer)), "no sheet");
  const auto joint = test.AddAccount("Joint");
  ScheduleValues check = Values(EntryKind::Debit);
  check.is_check = true;
  check.tax_deductible = true;
  ScheduleValues split = Values(EntryKind::Debit);
  split.split[0] = {"Rent", "Owner", 5.0};
  ScheduleValues to = Values(EntryKind::Transfer);
  to.transfer_account = savings->GetNumber();
  ScheduleValues from = to;
  from.is_transfer_origin = false;
  struct Case {
    ScheduleValues values;
    std::string line;
  } const cases[] = {
      {Values(EntryKind::Deposit), "#0 20040401 deposit 12.35 type=1 'Rent' to 'Owner'"},
      {check, "#1 20040401 debit -12.35 type=1 check 'Rent' to 'Owner' tax"},
      {split, "#2 20040401 debit 5.00 type=1 'Rent' to 'Split' split(Rent,Owner,5.00)"},
      {to, "#3 20040401 transfer -12.35 'Rent' to 'Savings' ->1#-1 origin"},
      {from, "#4 20040401 transfer 12.35 'Rent' to 'Savings' ->1#-1"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Add(test.app, c.values), "") << c.line;
    const auto schedule = test.app.desk().SelectedSchedule();
    ASSERT_NE(schedule, nullptr) << c.line;
    EXPECT_EQ(Line(*schedule), c.line);
    // Opened and closed again, the sheet changes nothing.
    EXPECT_TRUE(test.app.scheduleSheet().Edit());
    EXPECT_TRUE(test.app.scheduleSheet().OK());
    EXPECT_EQ(Line(*schedule), c.line);
    EXPECT_EQ(schedule->GetRepeatUntil(), 6);
  }
  EXPECT_EQ(joint->GetSchedules().size(), std::size(cases));
}

TEST(ScheduleSheet, RefusesWhatNoEntryCouldFollow) {
  TestApplication test;
  test.AddAccount("Savings");
  const auto joint = test.AddAccount("Joint");
  struct Case {
    void (*spoil)(ScheduleValues& values);
    std::string problem;
  } const cases[] = {
      {[](ScheduleValues& v) { v.start = 0; }, "The date does not exist."},
      {[](ScheduleValues& v) { v.amount = std::numeric_limits<double>::infinity(); },
       "The amount is not a number."},
      {[](ScheduleValues& v) { v.amount = -1.0; }, "The amount must not be negative."},
      {[](ScheduleValues& v) { v.repeat_interval_type = 7; },
       "It is not said how often it repeats."},
      {[](ScheduleValues& v) {
         v.repeat_interval_type = 20;
         v.repeat_interval = 0;
       },
       "The interval must be at least 1."},
      {[](ScheduleValues& v) { v.repeat_until = 0; },
       "The number of times it repeats must be at least 1."},
      {[](ScheduleValues& v) { v.repeat_until_type = 9; }, "It is not said when it ends."},
      {[](ScheduleValues& v) {
         v.repeat_until_type = 3;
         v.repeat_until = 20041301;
       },
       "The date on which it ends does not exist."},
      {[](ScheduleValues& v) {
         v.repeat_until_type = 3;
         v.repeat_until = 20040331;
       },
       "It ends before it begins."},
      {[](ScheduleValues& v) {
         v.start = 20040101;
         v.repeat_until_type = 3;
         v.repeat_until = 20040306;
       },
       "The date on which it ends lies in the past."},
      {[](ScheduleValues& v) {
         v.kind = EntryKind::Transfer;
         v.transfer_account = 99;
       },
       "No account is chosen."},
      {[](ScheduleValues& v) {
         v.kind = EntryKind::Transfer;
         v.transfer_account = 2;
       },
       "No account is chosen."},
  };
  for (const Case& c : cases) {
    ScheduleValues values = Values(EntryKind::Debit);
    c.spoil(values);
    EXPECT_EQ(Add(test.app, values), c.problem);
  }
  EXPECT_TRUE(joint->GetSchedules().empty());

  // An end that has come meanwhile does not keep the rest from being changed.
  ScheduleValues ended = Values(EntryKind::Debit);
  ended.repeat_until_type = 3;
  ended.repeat_until = 20040601;
  EXPECT_EQ(Add(test.app, ended), "");
  test.ambient.clock.SetLocal({2004, 7, 1, 12, 0, 0});
  EXPECT_TRUE(test.app.scheduleSheet().Edit());
  ended.notes = "moved out";
  test.app.scheduleSheet().Read(ended);
  EXPECT_TRUE(test.app.scheduleSheet().OK());
}

TEST(ScheduleSheet, ShowsTheTotalOfASplitUntilItsLastLineGoes) {
  TestApplication test;
  test.AddAccount("Joint");
  ASSERT_TRUE(test.app.scheduleSheet().New(EntryKind::Debit));
  const auto& typed = test.app.scheduleSheet().State().typed;
  test.app.scheduleSheet().Read(Values(EntryKind::Debit));
  ScheduleValues split = typed;
  split.split[9] = {"Rent", "Owner", 5.0};
  test.app.scheduleSheet().Read(split);
  EXPECT_EQ(typed.amount, 5.0);
  EXPECT_EQ(typed.to_from, "Split");
  split = typed;
  split.split = SplitRows();
  test.app.scheduleSheet().Read(split);
  EXPECT_EQ(typed.amount, 12.345);
  EXPECT_EQ(typed.to_from, "Owner");
}

TEST(ScheduleSheet, ShowsTheNextDatesOfWhatIsTyped) {
  TestApplication test;
  test.AddAccount("Joint");
  ASSERT_TRUE(test.app.scheduleSheet().New(EntryKind::Debit));
  const auto dates = [&](ScheduleValues values) {
    test.app.scheduleSheet().Read(std::move(values));
    Texts texts;
    for (const ScheduleDateLine& line : test.app.scheduleSheet().State().dates) {
      texts.push_back(line.text + (line.note.empty() ? "" : "; " + line.note));
    }
    return texts;
  };
  ScheduleValues values = Values(EntryKind::Debit);
  values.use_preceding_friday = true;
  values.repeat_until = 3;
  EXPECT_EQ(dates(values),
            (Texts{"Thu 1 Apr 2004", "Sat 1 May 2004; paid Fri 30 Apr", "Tue 1 Jun 2004"}));
  values.start = 20040531;
  EXPECT_EQ(dates(values), (Texts{"Mon 31 May 2004", "June 2004; no day 31",
                                  "Sat 31 Jul 2004; paid Fri 30 Jul", "Tue 31 Aug 2004"}));
  EXPECT_EQ(test.app.scheduleSheet().State().dates_note, "Months without a day 31 are left out.");
  values.repeat_until_type = 1;
  EXPECT_EQ(dates(values).size(), 12U + 8U);
  values.repeat_interval_type = 0;
  EXPECT_EQ(dates(values), Texts{"Mon 31 May 2004"});
  values.repeat_interval_type = 20;
  values.repeat_interval = 0;
  EXPECT_EQ(dates(values), Texts());
}

TEST(ScheduleList, RemovesDuplicatesAndGoesOnWithTheSelectedOne) {
  TestApplication test;
  const auto joint = test.AddAccount("Joint");
  EXPECT_FALSE(test.app.schedules().Schedule_CommitNext() ||
               test.app.schedules().Schedule_Duplicate());
  ScheduleValues values = Values(EntryKind::Debit);
  values.repeat_until = 3;
  EXPECT_EQ(Add(test.app, values), "");
  const auto rent = test.app.desk().SelectedSchedule();
  EXPECT_TRUE(test.app.schedules().Schedule_CommitNext());
  EXPECT_TRUE(test.app.schedules().Schedule_SkipNext());
  EXPECT_EQ(Lines(*joint), Texts{"#1 20040401 debit -12.35 type=1 'Rent' to 'Owner'"});
  EXPECT_TRUE(test.app.schedules().Schedule_Duplicate());
  const auto copy = test.app.desk().SelectedSchedule();
  EXPECT_NE(copy, rent);
  EXPECT_EQ(copy->GetNumber(), 1);
  EXPECT_EQ(copy->NextEntryDate(), 20040601);
  EXPECT_TRUE(test.app.schedules().Schedule_CommitNext());
  EXPECT_FALSE(test.app.schedules().Schedule_CommitNext() ||
               test.app.schedules().Schedule_SkipNext());
  EXPECT_FALSE(CommandNamed("Schedule_CommitNext")->can(test.app));
  EXPECT_EQ(rent->NextEntryDate(), 20040601);
  EXPECT_EQ(joint->GetEntries().size(), 2U);

  test.app.schedules().ScheduleRemoveConfirm_Begin();
  EXPECT_EQ(test.app.schedules().Confirm().question,
            "Are you sure you would like to remove the selected scheduled entry?");
  test.app.schedules().ScheduleRemoveConfirm_Cancel();
  EXPECT_EQ(joint->GetSchedules().size(), 2U);
  test.app.schedules().ScheduleRemoveConfirm_Begin();
  test.app.schedules().ScheduleRemoveConfirm_OK();
  EXPECT_EQ(joint->GetSchedules(), ScheduleList{rent});
  test.app.desk().preferences().SetScheduleRemoveConfirm(false);
  test.app.desk().SelectSchedule(rent);
  test.app.schedules().ScheduleRemoveConfirm_Begin();
  EXPECT_TRUE(joint->GetSchedules().empty());

  test.app.preferencesStore().Preferences_StoreAccountPrefs(joint.get());
  const auto views =
      test.app.desk().preferences().GetPreferencesForAccountNumber(joint->GetNumber());
  EXPECT_EQ(views->GetColumnsForTableIdentifier("schedule")->size(), 8U);

  // What recurs once falls due again as a copy.
  values.repeat_interval_type = 0;
  EXPECT_EQ(Add(test.app, values), "");
  EXPECT_TRUE(test.app.schedules().Schedule_CommitNext());
  EXPECT_FALSE(test.app.schedules().Schedule_CommitNext());
  EXPECT_TRUE(test.app.schedules().Schedule_Duplicate());
  EXPECT_TRUE(test.app.schedules().Schedule_CommitNext());
}

}  // namespace
}  // namespace tallyfold

#include "app/schedule_adding.h"

#include <gtest/gtest.h>

#include <limits>

#include "app/test_application.h"
#include "model/account_schedule.h"

namespace tallyfold {
namespace {

NewSchedule Values(EntryKind kind) {
  NewSchedule values;
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

TEST(NewSchedules, AreStoredAsTheirEntriesWillBe) {
  TestApplication test;
  const auto savings = test.AddAccount("Savings");
  test.AddAccount("Joint");
  NewSchedule check = Values(EntryKind::Debit);
  check.is_check = true;
  check.tax_deductible = true;
  NewSchedule split = Values(EntryKind::Debit);
  split.split[0] = {"Rent", "Owner", 5.0};
  NewSchedule to = Values(EntryKind::Transfer);
  to.transfer_account = savings->GetNumber();
  NewSchedule from = to;
  from.is_transfer_origin = false;
  struct Case {
    NewSchedule values;
    std::string line;
  } const cases[] = {
      {Values(EntryKind::Deposit), "#0 20040401 deposit 12.35 type=1 'Rent' to 'Owner'"},
      {check, "#1 20040401 debit -12.35 type=1 check 'Rent' to 'Owner' tax"},
      {split, "#2 20040401 debit 5.00 type=1 'Rent' to 'Split' split(Rent,Owner,5.00)"},
      {to, "#3 20040401 transfer -12.35 'Rent' to 'Savings' ->1#-1 origin"},
      {from, "#4 20040401 transfer 12.35 'Rent' to 'Savings' ->1#-1"},
  };
  for (const Case& c : cases) {
    const auto schedule = test.app.Schedule_Add(c.values);
    ASSERT_NE(schedule, nullptr) << c.line;
    EXPECT_EQ(Line(*schedule), c.line);
    EXPECT_EQ(schedule->GetRepeatIntervalType(), 4);
    EXPECT_EQ(schedule->GetRepeatUntil(), 6);
  }
  EXPECT_EQ(test.app.SelectedAccount()->GetSchedules().size(), std::size(cases));
}

TEST(NewSchedules, AreRefusedWhereNoEntryCouldFollow) {
  TestApplication test;
  EXPECT_EQ(test.app.Schedule_Add(Values(EntryKind::Debit)), nullptr);  // no account
  const auto joint = test.AddAccount("Joint");
  NewSchedule to_itself = Values(EntryKind::Transfer);
  to_itself.transfer_account = joint->GetNumber();
  NewSchedule to_nobody = Values(EntryKind::Transfer);
  to_nobody.transfer_account = 99;
  NewSchedule endless = Values(EntryKind::Debit);
  endless.amount = std::numeric_limits<double>::infinity();
  for (const NewSchedule& values : {to_itself, to_nobody, endless}) {
    EXPECT_EQ(test.app.Schedule_Add(values), nullptr);
  }
  EXPECT_TRUE(joint->GetSchedules().empty());
}

}  // namespace
}  // namespace tallyfold

#include "app/schedules/schedule_commit.h"

#include <gtest/gtest.h>

#include "app/accounts/account_selection.h"
#include "app/test_application.h"

namespace tallyfold {
namespace {

using Texts = std::vector<std::string>;

std::shared_ptr<LDGRAccountSchedule> AddMonthly(LDGRAccount& account, DateNumber start) {
  auto schedule = std::make_shared<LDGRAccountSchedule>();
  schedule->SetNumber(account.NextAvailableScheduleNumber());
  schedule->SetDate(start);
  schedule->SetRepeatIntervalType(4);
  schedule->SetIsDebit(true);
  schedule->SetAmount(-10.0);
  account.AddSchedule(schedule);
  return schedule;
}

TEST(DueOccurrences, ComeByDayAndAreCommittedOnce) {
  TestApplication test;
  const auto account = test.AddAccount("A");
  account->SetStartingCheckNumber(101);
  const auto rent = AddMonthly(*account, 20040201);
  const auto check = AddMonthly(*account, 20040215);
  check->SetIsCheck(true);
  check->SetCheckNumber(7);

  const auto due = test.app.scheduleCommit().Due(20040307);
  ASSERT_EQ(due.size(), 3U);
  EXPECT_EQ(due[1].entry->GetDate(), 20040215);
  for (const auto& occurrence : due) EXPECT_TRUE(test.app.scheduleCommit().Commit(occurrence));
  EXPECT_EQ(Lines(*account),
            (Texts{"#1 20040201 debit -10.00", "#2 20040215 debit -10.00 check=101",
                   "#3 20040301 debit -10.00"}));
  for (const auto& occurrence : due) {
    EXPECT_FALSE(test.app.scheduleCommit().Commit(occurrence));
    EXPECT_FALSE(test.app.scheduleCommit().Skip(occurrence));
  }
  EXPECT_TRUE(test.app.scheduleCommit().Due(20040307).empty());
  EXPECT_EQ(rent->GetCommittedDates(), (std::vector<DateNumber>{20040201, 20040301}));
}

TEST(DueOccurrences, OfTransfersMakeBothHalves) {
  TestApplication test;
  const auto a = test.AddAccount("A");
  const auto b = test.AddAccount("B");
  test.app.selection().Account_Select(a);
  const auto schedule = AddMonthly(*a, 20040301);
  schedule->SetIsDebit(false);
  schedule->SetIsTransfer(true);
  schedule->SetIsTransferOrigin(true);
  schedule->SetTransferEntry(5);
  struct Case {
    std::int32_t account;
    DateNumber start;
    Texts a;
    Texts b;
  } const cases[] = {
      {2,
       20040301,
       {"#1 20040301 transfer -10.00 to 'B' ->2#1 origin"},
       {"#1 20040301 transfer 10.00 to 'A' ->1#1"}},
      {77,
       20040302,
       {"#1 20040301 transfer -10.00 to 'B' ->2#1 origin",
        "#2 20040302 transfer -10.00 to 'Gone' ->77#-1 origin"},
       {"#1 20040301 transfer 10.00 to 'A' ->1#1"}},
  };
  for (const Case& c : cases) {
    schedule->SetTransferAccount(c.account);
    schedule->SetToFrom("Gone");
    schedule->SetDate(c.start);
    const auto due = test.app.scheduleCommit().Due(20040307);
    ASSERT_EQ(due.size(), 1U);
    EXPECT_TRUE(test.app.scheduleCommit().Commit(due[0]));
    EXPECT_EQ(Lines(*a), c.a);
    EXPECT_EQ(Lines(*b), c.b);
  }
}

}  // namespace
}  // namespace tallyfold

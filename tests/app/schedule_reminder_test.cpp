#include "app/schedules/schedule_reminder.h"

#include <gtest/gtest.h>

#include <limits>

#include "app/accounts/account_selection.h"
#include "app/desk.h"
#include "app/entries/entry_editing.h"
#include "app/face/sheet_slot.h"
#include "app/shell/application.h"
#include "app/shell/application_lock.h"
#include "app/shell/idle_watch.h"
#include "app/shell/text_editing.h"
#include "app/test_application.h"

namespace tallyfold {
namespace {

using std::chrono::seconds;
using Texts = std::vector<std::string>;

std::shared_ptr<LDGRAccountSchedule> AddSchedule(LDGRAccount& account, DateNumber start,
                                                 std::int32_t type) {
  auto schedule = std::make_shared<LDGRAccountSchedule>();
  schedule->SetNumber(account.NextAvailableScheduleNumber());
  schedule->SetDate(start);
  schedule->SetRepeatIntervalType(type);
  schedule->SetIsDebit(true);
  schedule->SetAmount(-10.0);
  account.AddSchedule(schedule);
  return schedule;
}

// An account with a rent due on the 1st, on 7 March 2004.
struct ReminderTest : TestApplication {
  ReminderTest() { app.desk().preferences().SetScheduleLookAhead(0); }

  [[nodiscard]] bool IsOpen() { return app.reminder().State().is_open; }
  // The marked rows behind "+", the others behind "-".
  [[nodiscard]] Texts Rows() {
    Texts rows;
    for (const ReminderRow& row : app.reminder().State().rows) {
      rows.push_back((row.typed.is_marked ? "+" : "-") + std::to_string(row.schedule->GetNumber()) +
                     " " + row.days_text);
    }
    return rows;
  }
  void Type(std::size_t row, ReminderRow::Typed typed) {
    std::vector<ReminderRow::Typed> rows;
    for (const ReminderRow& each : app.reminder().State().rows) rows.push_back(each.typed);
    rows[row] = typed;
    app.reminder().Read(rows);
  }

  std::shared_ptr<LDGRAccount> account = AddAccount("A");
};

TEST(ScheduleReminder, OpensWhenTheUserIsIdleAndNothingElseIsUp) {
  ReminderTest test;
  test.loop.AdvanceBy(seconds(15));
  EXPECT_FALSE(test.IsOpen());  // nothing is due
  AddSchedule(*test.account, 20040301, 4);
  test.loop.AdvanceBy(seconds(5));
  test.app.application().sendEvent(EventType::KeyDown);
  test.loop.AdvanceBy(seconds(14));
  EXPECT_FALSE(test.IsOpen());
  test.app.entries().New(EntryKind::Debit);
  test.loop.AdvanceBy(seconds(30));
  EXPECT_EQ(test.app.sheets().Current(), Sheet::Debit);
  test.app.entries().Debit().Cancel();
  test.app.selection().Account_Deselect();
  test.app.idleWatch().Schedules_Evaluate();
  EXPECT_FALSE(test.IsOpen());
  test.app.selection().Account_Select(test.account);
  test.loop.AdvanceBy(seconds(15));
  EXPECT_EQ(test.app.sheets().Current(), Sheet::ScheduleReminder);
  EXPECT_EQ(test.Rows(), Texts{"+0 03/01/04"});
  test.loop.AdvanceBy(seconds(3600));
  EXPECT_TRUE(test.account->GetEntries().empty());  // nothing is committed unasked

  test.app.reminder().Dismiss();
  test.app.applicationLock().setPassword("secret");
  test.app.applicationLock().lock();
  test.app.applicationLock().authentication_Begin();
  test.loop.AdvanceBy(seconds(60));
  test.app.idleWatch().Schedules_Evaluate();
  EXPECT_EQ(test.app.sheets().Current(), Sheet::Authentication);
}

TEST(ScheduleReminder, RestsAfterLaterUntilTheIntervalIsOverOrMoreFallsDue) {
  ReminderTest test;
  test.app.desk().preferences().SetScheduleReminderInterval(60);
  AddSchedule(*test.account, 20040301, 4);
  const auto opens = [&test](int after) {
    test.loop.AdvanceBy(seconds(after));
    return test.IsOpen();
  };
  EXPECT_TRUE(opens(15));
  test.app.reminder().Later();
  EXPECT_FALSE(opens(45));
  EXPECT_TRUE(opens(15));
  test.app.reminder().Later();
  EXPECT_FALSE(opens(15));
  test.app.idleWatch().Schedules_Evaluate();  // not the timer's
  EXPECT_TRUE(test.IsOpen());
  test.app.reminder().Later();
  AddSchedule(*test.account, 20040307, 4);
  EXPECT_TRUE(opens(15));
  EXPECT_EQ(test.Rows(), (Texts{"+0 03/01/04", "+1 03/07/04"}));
  // Another account is reminded by itself.
  test.app.reminder().Later();
  const auto other = test.AddAccount("B");
  AddSchedule(*other, 20040301, 4);
  EXPECT_TRUE(opens(15));
  test.app.reminder().Later();
  test.app.selection().Account_Select(test.account);
  EXPECT_FALSE(opens(15));
  EXPECT_TRUE(opens(30));
}

TEST(ScheduleReminder, LooksAheadAndFoldsWhatIsTooMuch) {
  ReminderTest test;
  AddSchedule(*test.account, 20040301, 4);
  AddSchedule(*test.account, 20040118, 1);  // 50 days up to today
  struct Case {
    std::string text;
    std::int32_t unit;
    bool is_taken;
    std::size_t rows;
    std::size_t ahead;
  } const cases[] = {
      {"0", 0, true, 51, 0},     {"1", 0, true, 3, 1},  // the one day to come stands by itself
      {"1", 1, true, 3, 7},      {"", 1, false, 3, 7},
      {"-1", 1, false, 3, 7},    {"12x", 1, false, 3, 7},
      {"10000", 1, false, 3, 7}, {"1", 2, true, 4, 32},  // 8 March to 7 April, and 1 April
      {"2", 2, true, 5, 63},  // 61 days to come folded into one, two rents
  };
  test.app.reminder().Open();
  for (const Case& c : cases) {
    test.app.reminder().LookAheadType(c.unit);
    EXPECT_EQ(test.app.reminder().scheduleReminderSheet_LookAhead(c.text), c.is_taken) << c.text;
    EXPECT_EQ(test.Rows().size(), c.rows) << c.text;
    EXPECT_EQ(test.app.reminder().State().ahead, c.ahead) << c.text;
  }
  EXPECT_EQ(test.Rows()[2], "-1 61 from 03/08/04 to 05/07/04");
  EXPECT_EQ(test.app.desk().preferences().GetScheduleLookAhead(), 2);

  // One day more is one too many.
  test.app.reminder().LookAheadType(0);
  test.app.textEditing().controlTextDidChange(
      TextEditing::TypedField::scheduleReminderSheet_LookAhead, "0");
  test.app.reminder().Later();
  test.ambient.clock.SetLocal({2004, 3, 8, 12, 0, 0});
  test.app.reminder().Open();
  EXPECT_EQ(test.Rows(), (Texts{"+1 51 from 01/18/04 to 03/08/04", "+0 03/01/04"}));
  test.Type(0, {true, 20200101, 9.0});
  test.app.reminder().Later();
  test.app.reminder().Open();
  EXPECT_EQ(test.app.reminder().State().rows[0].typed.amount, 10.0);
  test.Type(0, {true, 20200101, 2.5});  // its days stay
  EXPECT_TRUE(test.app.reminder().CommitMarked());
  EXPECT_EQ(test.account->GetEntries().size(), 52U);
  EXPECT_EQ(Line(*test.account->GetEntries().front()), "#1 20040118 debit -2.50");
  EXPECT_EQ(Line(*test.account->GetEntries().back()), "#52 20040308 debit -2.50");
}

TEST(ScheduleReminder, CommitsAndSkipsWhatIsMarkedAsItWasEdited) {
  ReminderTest test;
  const auto rent = AddSchedule(*test.account, 20040101, 4);
  auto& app = test.app;
  app.reminder().Open();
  EXPECT_EQ(app.reminder().State().balance_text, "-$30.00");
  app.reminder().MarkAll(false);
  EXPECT_FALSE(app.reminder().CommitMarked());
  EXPECT_EQ(TextOf(app.reminder().State().problem), "Nothing is marked.");
  test.Type(1, {true, 20040200, 12.0});
  EXPECT_FALSE(app.reminder().CommitMarked());
  EXPECT_EQ(TextOf(app.reminder().State().problem), "The date does not exist.");
  test.Type(1, {true, 20040203, std::numeric_limits<double>::quiet_NaN()});
  EXPECT_FALSE(app.reminder().CommitMarked());
  EXPECT_EQ(TextOf(app.reminder().State().problem), "The amount is not a number.");
  test.Type(1, {true, 20040203, 12.0});
  EXPECT_EQ(app.reminder().State().balance_text, "-$12.00");
  EXPECT_TRUE(test.account->GetEntries().empty());
  EXPECT_TRUE(app.reminder().CommitMarked());
  EXPECT_FALSE(test.IsOpen());
  EXPECT_EQ(Lines(*test.account), Texts{"#1 20040203 debit -12.00"});
  EXPECT_EQ(rent->GetCommittedDates(), std::vector<DateNumber>{20040201});

  app.reminder().Open();
  EXPECT_EQ(test.Rows(), (Texts{"+0 01/01/04", "+0 03/01/04"}));
  test.Type(0, {false, 20040101, 10.0});
  EXPECT_TRUE(app.reminder().SkipMarked());
  EXPECT_EQ(test.Rows(), Texts{"-0 01/01/04"});
  // Committed behind its back: all or nothing.
  const auto yearly = AddSchedule(*test.account, 20040304, 5);
  app.reminder().Later();
  app.reminder().Open();
  yearly->AddCommittedDate(20040304);
  EXPECT_FALSE(app.reminder().CommitAll());
  EXPECT_NE(TextOf(app.reminder().State().problem).find("meanwhile"), std::string::npos);
  EXPECT_EQ(test.account->GetEntries().size(), 1U);
  EXPECT_EQ(test.Rows(), Texts{"+0 01/01/04"});
  EXPECT_TRUE(app.reminder().SkipMarked());
  EXPECT_FALSE(test.IsOpen());  // nothing is left
}

}  // namespace
}  // namespace tallyfold

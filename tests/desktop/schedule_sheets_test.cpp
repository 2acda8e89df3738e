#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QTableView>
#include <algorithm>

#include "app/desk.h"
#include "app/face/sheet_slot.h"
#include "app/schedules/schedule_editing.h"
#include "app/schedules/schedule_reminder.h"
#include "desktop/test_window.h"
#include "model/account.h"

namespace tallyfold::desktop {
namespace {

TEST(ScheduleSheet, MakesADebitRefusesWhatIsNoNumberAndTheReminderCommitsIt) {
  TestWindow test(ExampleAccounts());
  ASSERT_TRUE(test.Launch());
  LDGRController& app = test.program->app();
  const auto account = app.desk().SelectedAccount();
  const std::size_t count = account->GetSchedules().size();
  ASSERT_TRUE(app.scheduleSheet().New(EntryKind::Debit));
  test.Settle();
  const auto choose = [&test](const char* name, const char* title) {
    auto* pop_up = test.Find<QComboBox>(name);
    pop_up->setCurrentIndex(pop_up->findText(QLatin1String(title)));
  };
  test.Fill("scheduleSheet_Start_Field", "03/31/26");
  test.Fill("scheduleSheet_Description_Field", "Bins");
  choose("scheduleSheet_Interval_PopUp", "Every ... Weeks");
  choose("scheduleSheet_UntilType_PopUp", "Until a Date");
  EXPECT_EQ(test.Find<QLineEdit>("scheduleSheet_Until_Field")->text(), QLatin1String("03/31/26"));
  choose("scheduleSheet_UntilType_PopUp", "A Number of Times");
  // Typed and taken back.
  test.FindWidget("scheduleSheet_Notes_Field")->setFocus();
  test.Type("x");
  test.Key(Qt::Key_Z, Qt::ControlModifier);
  const struct {
    const char* field;
    const char* bad;
    const char* good;
  } cases[] = {
      {"scheduleSheet_Amount_Field", "7x", "7.25"},
      {"scheduleSheet_Every_Field", "x", "2"},
      {"scheduleSheet_Until_Field", "0", "3"},
  };
  for (const auto& each : cases) {
    test.Fill(each.field, each.bad);
    test.Click("scheduleSheet_OK_Button");
    ASSERT_EQ(app.sheets().Current(), Sheet::Schedule) << each.field;
    ASSERT_TRUE(app.scheduleSheet().State().problem) << each.field;
    EXPECT_EQ(app.scheduleSheet().State().problem->field, each.field);
    EXPECT_EQ(test.FocusName(), QLatin1String(each.field));
    EXPECT_EQ(test.Find<QLineEdit>(each.field)->text(), QLatin1String(each.bad));
    test.Fill(each.field, each.good);
  }
  EXPECT_EQ(test.Rows("scheduleSheet_Dates_Table"), 3);
  test.Click("scheduleSheet_OK_Button");
  ASSERT_EQ(app.sheets().Current(), Sheet::None);
  ASSERT_EQ(account->GetSchedules().size(), count + 1);
  const auto& made = account->GetSchedules().back();
  EXPECT_EQ(made->GetDescription(), "Bins");
  EXPECT_EQ(made->GetAmount(), -7.25);
  EXPECT_EQ(made->GetDate(), 20260331);
  EXPECT_EQ(made->GetNotes(), "");

  // Looked ahead to its three days, and the first of them committed with another amount.
  const std::size_t entries = account->GetEntries().size();
  ASSERT_TRUE(app.reminder().Open());
  test.Settle();
  test.Fill("scheduleReminderSheet_LookAhead", "90");
  app.reminder().MarkAll(false);
  auto* table = test.Find<QTableView>("scheduleReminderSheet_Table");
  constexpr int kAmount = 5;
  // The rows are made anew with the look-ahead.
  const auto amount = [&app, &made, table] {
    const auto& rows = app.reminder().State().rows;
    const auto row = std::ranges::find(rows, made, &ReminderRow::schedule) - rows.begin();
    return table->model()->index(static_cast<int>(row), kAmount);
  };
  ASSERT_TRUE(amount().isValid());
  EXPECT_EQ(amount().data().toString(), QLatin1String("-$7.25"));
  table->setFocus();
  table->setCurrentIndex(amount());
  test.Key(Qt::Key_Space);
  for (const char* bad : {"-8", "8x"}) {
    test.Type(bad);
    test.Key(Qt::Key_Return);
    test.Click("scheduleReminderSheet_Commit_Button");
    ASSERT_EQ(app.sheets().Current(), Sheet::ScheduleReminder) << bad;
    EXPECT_EQ(amount().data(Qt::AccessibleDescriptionRole).toString().toStdString(),
              app.reminder().State().problem->text)
        << bad;
    EXPECT_EQ(table->currentIndex(), amount()) << bad;
  }
  // Out of sight and back again, also the text that is no amount.
  for (const char* days : {"905", "1", "90"}) test.Fill("scheduleReminderSheet_LookAhead", days);
  EXPECT_EQ(amount().data().toString(), QLatin1String("8x"));
  EXPECT_EQ(app.reminder().State().marked, 1U);
  table->setFocus();
  table->setCurrentIndex(amount());
  test.Type("8.50");
  // Midnight comes while the cell is open, and more falls due.
  const int rows = test.Rows("scheduleReminderSheet_Table");
  test.ambient.clock.SetLocal({2026, 3, 5, 0, 0, 0});
  app.reminder().DayChanged();
  test.Settle();
  EXPECT_GT(test.Rows("scheduleReminderSheet_Table"), rows);
  EXPECT_EQ(amount().data().toString(), QLatin1String("-$8.50"));
  app.reminder().MarkAll(false);
  table->setCurrentIndex(amount());
  test.Key(Qt::Key_Space);
  test.Click("scheduleReminderSheet_Commit_Button");
  ASSERT_EQ(app.sheets().Current(), Sheet::None);
  ASSERT_EQ(account->GetEntries().size(), entries + 1);
  EXPECT_EQ(account->GetEntries().back()->GetAmount(), -8.5);
}

}  // namespace
}  // namespace tallyfold::desktop

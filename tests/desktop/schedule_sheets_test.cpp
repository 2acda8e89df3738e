#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTableWidget>
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
  const auto type = [&test](const char* name, const char* text) {
    auto* field = test.Find<QLineEdit>(name);
    field->setFocus();
    field->selectAll();
    test.Type(text);
  };
  const auto choose = [&test](const char* name, const char* title) {
    auto* pop_up = test.Find<QComboBox>(name);
    pop_up->setCurrentIndex(pop_up->findText(QLatin1String(title)));
  };
  type("scheduleSheet_Start_Field", "03/31/26");
  type("scheduleSheet_Description_Field", "Bins");
  choose("scheduleSheet_Interval_PopUp", "Every ... Weeks");
  choose("scheduleSheet_UntilType_PopUp", "A Number of Times");
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
    type(each.field, each.bad);
    test.Click("scheduleSheet_OK_Button");
    ASSERT_EQ(app.sheets().Current(), Sheet::Schedule) << each.field;
    ASSERT_TRUE(app.scheduleSheet().State().problem) << each.field;
    EXPECT_EQ(app.scheduleSheet().State().problem->field, each.field);
    EXPECT_EQ(test.FocusName(), QLatin1String(each.field));
    EXPECT_EQ(test.Find<QLineEdit>(each.field)->text(), QLatin1String(each.bad));
    type(each.field, each.good);
  }
  EXPECT_EQ(test.Rows("scheduleSheet_Dates_Table"), 3);
  test.Click("scheduleSheet_OK_Button");
  ASSERT_EQ(app.sheets().Current(), Sheet::None);
  ASSERT_EQ(account->GetSchedules().size(), count + 1);
  const auto& made = account->GetSchedules().back();
  EXPECT_EQ(made->GetDescription(), "Bins");
  EXPECT_EQ(made->GetAmount(), -7.25);
  EXPECT_EQ(made->GetDate(), 20260331);

  // Looked ahead to its three days, and the first of them committed with another amount.
  const std::size_t entries = account->GetEntries().size();
  ASSERT_TRUE(app.reminder().Open());
  test.Settle();
  type("scheduleReminderSheet_LookAhead", "90");
  app.reminder().MarkAll(false);
  const auto& rows = app.reminder().State().rows;
  const auto row =
      std::find_if(rows.begin(), rows.end(),
                   [&made](const ReminderRow& each) { return each.schedule == made; }) -
      rows.begin();
  ASSERT_LT(row, static_cast<std::ptrdiff_t>(rows.size()));
  auto* table = test.Find<QTableWidget>("scheduleReminderSheet_Table");
  // The rows are made anew with the look-ahead.
  const auto amount = [table, row] {
    return qobject_cast<QLineEdit*>(table->cellWidget(static_cast<int>(row), 5));
  };
  qobject_cast<QCheckBox*>(table->cellWidget(static_cast<int>(row), 0))->setChecked(true);
  amount()->setText(QStringLiteral("8x"));
  test.Click("scheduleReminderSheet_Commit_Button");
  ASSERT_EQ(app.sheets().Current(), Sheet::ScheduleReminder);
  EXPECT_FALSE(amount()->accessibleDescription().isEmpty());
  auto* look_ahead = test.Find<QLineEdit>("scheduleReminderSheet_LookAhead");
  look_ahead->setFocus();
  look_ahead->end(false);
  test.Type("5");
  EXPECT_EQ(amount()->text(), QLatin1String("8x"));
  amount()->setText(QStringLiteral("8.50"));
  test.Click("scheduleReminderSheet_Commit_Button");
  ASSERT_EQ(app.sheets().Current(), Sheet::None);
  ASSERT_EQ(account->GetEntries().size(), entries + 1);
  EXPECT_EQ(account->GetEntries().back()->GetAmount(), -8.5);
}

}  // namespace
}  // namespace tallyfold::desktop

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>

#include "app/controller.h"
#include "app/desk.h"
#include "app/face/sheet_slot.h"
#include "app/shell/tabs.h"
#include "app/shell/update_check.h"
#include "desktop/hand.h"
#include "model/account.h"

namespace tallyfold::desktop {
namespace {

TEST(ARefusedField, IsNotGoneBackToWhileSomethingElseIsTyped) {
  TestWindow test(ExampleAccounts());
  ASSERT_TRUE(test.Launch());
  Hand hand(test);
  LDGRController& app = test.program->app();
  app.tabs().Select(Tab::Summary);
  hand.Order("AccountSummarySheet_Open");
  Hand::Type("accountSummarySheet_Name_Field", " ");
  TestWindow::Key(Qt::Key_Return);
  ASSERT_EQ(app.sheets().Current(), Sheet::AccountSummary);
  Hand::Tick("accountSummarySheet_Filter_CheckBox");
  Hand::Type("accountSummarySheet_FilterText_Field", "Week");
  EXPECT_EQ(TestWindow::Find<QLineEdit>("accountSummarySheet_FilterText_Field")->text(),
            QLatin1String("Week"));
}

TEST(NewsOfAnUpdate, WaitUntilTheSheetIsClosed) {
  TestWindow test(ExampleAccounts());
  ASSERT_TRUE(test.Launch());
  TestWindow::Key(Qt::Key_D, Qt::ControlModifier);
  Hand::Type("debitSheet_Description_Field", "Te");
  test.program->app().updates().CheckForUpdates();
  TestWindow::Type("a");
  EXPECT_EQ(TestWindow::Find<QLineEdit>("debitSheet_Description_Field")->text(),
            QLatin1String("Tea"));
  TestWindow::Key(Qt::Key_Escape);
  EXPECT_EQ(TestWindow::FocusName(), QLatin1String("updateCheck_Close_Button"));
  TestWindow::Key(Qt::Key_Return);
  EXPECT_EQ(QApplication::activeWindow(), &test.program->window());
}

// What OK adds to an account or beside it.
const struct {
  const char* sheet;
  const char* command;
  const char* field;
  const char* text;
} kAdding[] = {{"debitSheet", "Entry_Debit", "_Amount_Field", "7"},
               {"accountEditSheet", "Account_Add", "_Name_Field", "Other"},
               {"scheduleSheet", "Schedule_Debit", "_Amount_Field", "7"}};

TEST(OK, TwiceIsOneOKAndTheEndOfTheSessionIsNone) {
  for (const auto& each : kAdding) {
    SCOPED_TRACE(each.sheet);
    TestWindow test(ExampleAccounts());
    ASSERT_TRUE(test.Launch());
    Hand hand(test);
    LDGRController& app = test.program->app();
    const auto account = app.desk().SelectedAccount();
    const auto count = [&app, &account] {
      return account->GetEntries().size() + account->GetSchedules().size() +
             app.desk().accounts().size();
    };
    const std::size_t before = count();
    const auto fill = [&hand, &each] {
      hand.Order(each.command);
      Hand::Type((each.sheet + QByteArray(each.field)).constData(), each.text);
    };
    fill();
    auto* ok = TestWindow::Find<QPushButton>((each.sheet + QByteArray("_OK_Button")).constData());
    ok->click();
    ok->click();
    TestWindow::Settle();
    EXPECT_EQ(count(), before + 1);
    fill();
    EXPECT_EQ(test.program->Save(Ending::Asker::Nobody), Ending::Outcome::Saved);
    EXPECT_EQ(app.sheets().Current(), Sheet::None);
    EXPECT_EQ(count(), before + 1);
  }
}

}  // namespace
}  // namespace tallyfold::desktop

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <algorithm>
#include <string>
#include <vector>

#include "app/controller.h"
#include "app/desk.h"
#include "app/face/sheet_slot.h"
#include "app/schedules/schedule_reminder.h"
#include "app/shell/tabs.h"
#include "desktop/hand.h"
#include "model/account.h"
#include "model/account_schedule.h"
#include "model/entry_type.h"
#include "summaries/account_summary.h"

namespace tallyfold::desktop {
namespace {

// What is neither a day nor a number, and what is odd as a text.
const struct {
  const char* name;
  QString text;
  bool is_odd_text = true;
} kInputs[] = {
    {"too long", QString(33'000, QLatin1Char('9'))},
    {"a word", QStringLiteral("12x"), false},
    {"no day", QStringLiteral("31/31/31"), false},
    {"a table", QStringLiteral("03/02/26\t12.50\n03/03/26\t7.00\n")},
    {"right to left", QString::fromUtf8("\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d \xd9\xa1\xd9\xa2")},
    {"emoji", QString::fromUtf8("\xf0\x9f\x91\xa9\xe2\x80\x8d\xf0\x9f\x91\xa7 12")},
};

using Account = LDGRAccount;
struct Field {
  const char* name;
  // Makes the field one that counts; null where it always does.
  void (*prepare)(Hand& hand) = nullptr;
  // What an OK has stored, of a field that takes any text; null for others.
  std::string (*stored)(const Account& account) = nullptr;
};

// The one type of checks, whatever it is called by now.
void EditCheckType(Hand&) {
  Hand::Page("accountEditSheet_TabView", "Types");
  auto* types = TestWindow::Find<QTableView>("accountEditSheet_Types_Table");
  types->setFocus();
  const auto kinds = types->model()->match(types->model()->index(0, 1), Qt::DisplayRole,
                                           QStringLiteral("Check"), 1, Qt::MatchExactly);
  types->setCurrentIndex(kinds.front().siblingAtColumn(0));
  TestWindow::Key(Qt::Key_F2);
}
std::string NameOfCheckType(const Account& account) {
  const auto& types = account.GetTypes();
  return (*std::ranges::find_if(types, [](const auto& type) { return type->GetIsCheck(); }))
      ->GetName();
}

struct SheetWithFields {
  const char* prefix;
  Sheet sheet;
  void (*open)(Hand& hand);
  std::vector<Field> fields;
};

std::vector<SheetWithFields> Sheets() {
  const auto description = [](const Account& account) {
    return account.GetEntries().back()->GetDescription();
  };
  const auto to_from = [](const Account& account) {
    return account.GetEntries().back()->GetToFrom();
  };
  const auto notes = [](const Account& account) { return account.GetEntries().back()->GetNotes(); };
  return {
      {"debitSheet",
       Sheet::Debit,
       [](Hand&) { TestWindow::Key(Qt::Key_D, Qt::ControlModifier); },
       {{"_Date_Field"},
        {"_CheckNumber_Field", [](Hand&) { Hand::Tick("debitSheet_CheckNumber_Button"); }},
        {"_Amount_Field"},
        {"_Description_Field", nullptr, description},
        {"_ToFrom_Field", nullptr, to_from},
        {"_Notes_Field", nullptr, notes}}},
      {"depositSheet",
       Sheet::Deposit,
       [](Hand&) { TestWindow::Key(Qt::Key_Plus, Qt::ControlModifier); },
       {{"_Date_Field"},
        {"_Amount_Field"},
        {"_Description_Field", nullptr, description},
        {"_ToFrom_Field", nullptr, to_from},
        {"_Notes_Field", nullptr, notes}}},
      {"transferSheet",
       Sheet::Transfer,
       [](Hand&) {
         TestWindow::Key(Qt::Key_T, Qt::ControlModifier);
         Hand::Choose("transferSheet_Account_PopUp", "Cash");
       },
       {{"_Date_Field"},
        {"_Amount_Field"},
        {"_Description_Field", nullptr, description},
        {"_Notes_Field", nullptr, notes}}},
      {"scheduleSheet",
       Sheet::Schedule,
       [](Hand&) { TestWindow::Key(Qt::Key_D, Qt::ControlModifier | Qt::AltModifier); },
       {{"_Start_Field"},
        {"_Amount_Field"},
        {"_Every_Field",
         [](Hand&) { Hand::Choose("scheduleSheet_Interval_PopUp", "Every ... Weeks"); }},
        {"_Until_Field",
         [](Hand&) { Hand::Choose("scheduleSheet_UntilType_PopUp", "A Number of Times"); }},
        {"_Until_Field",
         [](Hand&) { Hand::Choose("scheduleSheet_UntilType_PopUp", "Until a Date"); }},
        {"_Description_Field", nullptr,
         [](const Account& account) { return account.GetSchedules().back()->GetDescription(); }},
        {"_ToFrom_Field", nullptr,
         [](const Account& account) { return account.GetSchedules().back()->GetToFrom(); }},
        {"_Notes_Field", nullptr,
         [](const Account& account) { return account.GetSchedules().back()->GetNotes(); }}}},
      {"accountEditSheet",
       Sheet::AccountEdit,
       [](Hand& hand) { hand.Order("Account_Edit"); },
       {{"_Name_Field", nullptr, [](const Account& account) { return account.GetName(); }},
        {"_StartingBalance_Field"},
        {"_StartingCheckNumber_Field"},
        {"_DescriptionsCount_Field",
         [](Hand&) { Hand::Page("accountEditSheet_TabView", "Descriptions"); }},
        {"_ToFromsCount_Field",
         [](Hand&) { Hand::Page("accountEditSheet_TabView", "To and From"); }},
        {"_PasswordAgain_Field", [](Hand&) { Hand::Page("accountEditSheet_TabView", "Password"); }},
        {"_Types_Table_Cell_Field", EditCheckType, NameOfCheckType}}},
      {"accountSummarySheet",
       Sheet::AccountSummary,
       [](Hand& hand) {
         hand.test.program->app().tabs().Select(Tab::Summary);
         hand.Order("AccountSummarySheet_Open");
       },
       {{"_Name_Field", nullptr,
         [](const Account& account) { return account.selectedAccountSummary()->name(); }},
        {"_Start_Field",
         [](Hand&) { Hand::Choose("accountSummarySheet_DateRange_PopUp", "Custom"); }},
        {"_End_Field",
         [](Hand&) { Hand::Choose("accountSummarySheet_DateRange_PopUp", "Custom"); }},
        {"_FilterText_Field", [](Hand&) { Hand::Tick("accountSummarySheet_Filter_CheckBox"); },
         [](const Account& account) {
           return std::string(account.selectedAccountSummary()->filterData().StringValue());
         }}}},
      {"preferencesSheet",
       Sheet::Preferences,
       [](Hand&) { TestWindow::Key(Qt::Key_Comma, Qt::ControlModifier); },
       {{"_accountsDrawerWidth", [](Hand&) { Hand::Page("preferencesSheet_TabView", "Window"); }},
        {"_entryFontSize", [](Hand&) { Hand::Page("preferencesSheet_TabView", "Registers"); }},
        {"_scheduleLookAhead", [](Hand&) { Hand::Page("preferencesSheet_TabView", "Schedules"); }},
        {"_scheduleReminderInterval",
         [](Hand&) { Hand::Page("preferencesSheet_TabView", "Schedules"); }},
        {"_pauseBetweenSpokenEntries",
         [](Hand&) { Hand::Page("preferencesSheet_TabView", "Speech"); }},
        {"_backupInterval",
         [](Hand&) { Hand::Page("preferencesSheet_TabView", "Backups and Files"); }},
        {"_PasswordAgain_Field",
         [](Hand&) { Hand::Page("preferencesSheet_TabView", "Security"); }}}},
  };
}

// A cell of the first row of a table.
struct Cell {
  Sheet sheet;
  // Makes the row one that counts.
  void (*open)(Hand& hand);
  const char* table;
  int column;
  const char* ok;
  // As of a field.
  std::string (*stored)(const Account& account, int column) = nullptr;
};

std::string TextOfLine(const LDGRAccountEntry& entry, int column) {
  const auto split = entry.GetSplit();
  return column == 1 ? split->GetDescription(0) : split->GetToFrom(0);
}

std::vector<Cell> Cells() {
  const auto split = [](Hand&) {
    TestWindow::Key(Qt::Key_D, Qt::ControlModifier);
    Hand::Press("debitSheet_Split_Button");
  };
  const auto schedule = [](Hand&) {
    TestWindow::Key(Qt::Key_D, Qt::ControlModifier | Qt::AltModifier);
    Hand::Press("scheduleSheet_Split_Button");
  };
  const auto reminder = [](Hand& hand) {
    hand.Order("ScheduleReminderSheet_Open");
    Hand::Type("scheduleReminderSheet_LookAhead", "30");
    hand.test.program->app().reminder().MarkAll(true);
  };
  const auto in_entry = [](const Account& account, int column) {
    return TextOfLine(*account.GetEntries().back(), column);
  };
  const auto in_schedule = [](const Account& account, int column) {
    return TextOfLine(*account.GetSchedules().back(), column);
  };
  constexpr auto* kSplit = "debitSheet_Split_Table";
  constexpr auto* kSplitOK = "debitSheet_OK_Button";
  constexpr auto* kSchedule = "scheduleSheet_Split_Table";
  constexpr auto* kScheduleOK = "scheduleSheet_OK_Button";
  constexpr auto* kReminder = "scheduleReminderSheet_Table";
  // Schedules made by the others have splits, whose amounts are off in the reminder.
  return {
      {Sheet::ScheduleReminder, reminder, kReminder, 1, "scheduleReminderSheet_Commit_Button"},
      {Sheet::ScheduleReminder, reminder, kReminder, 5, "scheduleReminderSheet_CommitAll_Button"},
      {Sheet::Debit, split, kSplit, 1, kSplitOK, in_entry},
      {Sheet::Debit, split, kSplit, 2, kSplitOK, in_entry},
      {Sheet::Debit, split, kSplit, 3, kSplitOK},
      {Sheet::Schedule, schedule, kSchedule, 1, kScheduleOK, in_schedule},
      {Sheet::Schedule, schedule, kSchedule, 2, kScheduleOK, in_schedule},
      {Sheet::Schedule, schedule, kSchedule, 3, kScheduleOK},
  };
}

QString TextIn(const QWidget* field) {
  const auto* notes = qobject_cast<const QPlainTextEdit*>(field);
  return notes != nullptr ? notes->toPlainText() : static_cast<const QLineEdit*>(field)->text();
}

// In the place of what the field with the focus held.
void PasteHere(const QString& text) {
  QGuiApplication::clipboard()->setText(text);
  TestWindow::Key(Qt::Key_A, Qt::ControlModifier);
  TestWindow::Key(Qt::Key_V, Qt::ControlModifier);
}

void Paste(const QByteArray& field, const QString& text) {
  Hand::To(field.constData());
  PasteHere(text);
}

class BadInput : public testing::Test {
 protected:
  BadInput() : test(ExampleAccounts()), hand(test) {
    EXPECT_TRUE(test.Launch());
    test.Key(Qt::Key_Down);
    // Little to paint anew.
    test.program->window().resize(test.program->window().minimumSize());
  }
  [[nodiscard]] LDGRController& app() { return test.program->app(); }
  void Open(const SheetWithFields& sheet, const Field& field) {
    if (app().sheets().IsFree()) sheet.open(hand);
    ASSERT_EQ(app().sheets().Current(), sheet.sheet);
    if (field.prepare != nullptr) field.prepare(hand);
  }

  TestWindow test;
  Hand hand;
};

TEST_F(BadInput, IsRefusedBesideItsFieldAndStaysThereOrIsTakenWhole) {
  for (const SheetWithFields& sheet : Sheets()) {
    const QByteArray ok = QByteArray(sheet.prefix) + "_OK_Button";
    for (const Field& field : sheet.fields) {
      const QByteArray name = QByteArray(sheet.prefix) + field.name;
      for (const auto& input : kInputs) {
        if (field.stored != nullptr && !input.is_odd_text) continue;
        SCOPED_TRACE(name.toStdString() + ": " + input.name);
        ASSERT_NO_FATAL_FAILURE(Open(sheet, field));
        ASSERT_NO_THROW(Paste(name, input.text));
        EXPECT_TRUE(TextIn(TestWindow::Focus()) == input.text);
        TestWindow::Click(ok.constData());
        if (field.stored != nullptr) {
          ASSERT_EQ(app().sheets().Current(), Sheet::None);
          EXPECT_TRUE(field.stored(*app().desk().SelectedAccount()) == input.text.toStdString());
          continue;
        }
        ASSERT_EQ(app().sheets().Current(), sheet.sheet);
        const QWidget* focus = TestWindow::Focus();
        EXPECT_EQ(focus->objectName(), QLatin1String(name));
        EXPECT_TRUE(TextIn(focus) == input.text);
        // Said in sight, and to who cannot see it.
        const QString said = focus->accessibleDescription();
        EXPECT_FALSE(said.isEmpty());
        const auto labels = QApplication::activeWindow()->findChildren<QLabel*>();
        EXPECT_TRUE(std::ranges::any_of(labels, [&said](const QLabel* label) {
          return label->isVisible() && label->text() == said;
        })) << said.toStdString();
      }
      TestWindow::Key(Qt::Key_Escape);
    }
  }
}

TEST_F(BadInput, OfACellIsRefusedInItAndStaysThereOrIsTakenWhole) {
  for (const Cell& cell : Cells()) {
    for (const auto& input : kInputs) {
      if (cell.stored != nullptr && !input.is_odd_text) continue;
      SCOPED_TRACE(cell.table + std::to_string(cell.column) + ": " + input.name);
      if (app().sheets().IsFree()) cell.open(hand);
      ASSERT_EQ(app().sheets().Current(), cell.sheet);
      auto* table = TestWindow::Find<QTableView>(cell.table);
      const QModelIndex place = table->model()->index(0, cell.column);
      table->setFocus();
      table->setCurrentIndex(place);
      TestWindow::Key(Qt::Key_F2);
      PasteHere(input.text);
      // With the cell still open.
      TestWindow::Click(cell.ok);
      if (cell.stored != nullptr) {
        ASSERT_EQ(app().sheets().Current(), Sheet::None);
        const auto stored = cell.stored(*app().desk().SelectedAccount(), cell.column);
        EXPECT_TRUE(stored == input.text.toStdString());
        continue;
      }
      ASSERT_EQ(app().sheets().Current(), cell.sheet);
      EXPECT_EQ(TestWindow::FocusName(), QLatin1String(cell.table));
      EXPECT_EQ(table->currentIndex(), place);
      EXPECT_TRUE(place.data().toString() == input.text);
      EXPECT_FALSE(TestWindow::TextOf("sheet_Problem").isEmpty());
      EXPECT_EQ(place.data(Qt::AccessibleDescriptionRole).toString(),
                TestWindow::TextOf("sheet_Problem"));
    }
    if (!app().sheets().IsFree()) TestWindow::Key(Qt::Key_Escape);
  }
}

TEST_F(BadInput, OKTwiceInTheReminderIsOneAndAnOpenCellIsNoneAtTheEndOfTheSession) {
  const auto& entries = app().desk().SelectedAccount()->GetEntries();
  const Cell reminder = Cells().front();
  reminder.open(hand);
  auto* commit = TestWindow::Find<QPushButton>(reminder.ok);
  const std::size_t all = entries.size() + app().reminder().State().marked;
  commit->click();
  commit->click();
  test.Settle();
  EXPECT_EQ(entries.size(), all);
  TestWindow::Key(Qt::Key_D, Qt::ControlModifier);
  Hand::Type("debitSheet_Amount_Field", "8");
  Hand::Press("debitSheet_Split_Button");
  test.Type("in an open cell");
  EXPECT_EQ(test.program->Save(Ending::Asker::Nobody), Ending::Outcome::Saved);
  EXPECT_EQ(app().sheets().Current(), Sheet::None);
  EXPECT_EQ(entries.size(), all);
}

TEST_F(BadInput, IsAPasswordLikeAnyOtherAndNothingIsSaidOfAWrongOne) {
  const struct {
    const char* prefix;
    void (*open)(Hand& by);
    const char* pages;
    const char* page;
    const char* asks;
    void (*lock)(Hand& by);
  } kLocks[] = {
      {"accountEditSheet", [](Hand& by) { by.Order("Account_Edit"); }, "accountEditSheet_TabView",
       "Password", "accountAuthenticationSheet",
       [](Hand& by) {
         by.Order("Account_Lock");
         TestWindow::Key(Qt::Key_1, Qt::ControlModifier);
       }},
      {"preferencesSheet", [](Hand&) { TestWindow::Key(Qt::Key_Comma, Qt::ControlModifier); },
       "preferencesSheet_TabView", "Security", "authenticationSheet",
       [](Hand&) { TestWindow::Key(Qt::Key_L, Qt::ControlModifier); }}};
  for (const auto& each : kLocks) {
    const QByteArray field = each.asks + QByteArray("_Password_Field");
    for (const auto& input : kInputs) {
      SCOPED_TRACE(std::string(each.asks) + ": " + input.name);
      each.open(hand);
      Hand::Page(each.pages, each.page);
      Paste(each.prefix + QByteArray("_Password_Field"), input.text);
      Paste(each.prefix + QByteArray("_PasswordAgain_Field"), input.text);
      TestWindow::Key(Qt::Key_Return);
      each.lock(hand);
      const QWidget* sheet = QApplication::activeWindow();
      ASSERT_EQ(sheet->objectName(), QLatin1String(each.asks));
      auto* ok = TestWindow::Find<QPushButton>((each.asks + QByteArray("_OK_Button")).constData());
      Paste(field, input.text + QLatin1Char(' '));
      EXPECT_FALSE(ok->isEnabled());
      TestWindow::Key(Qt::Key_Return);
      EXPECT_EQ(QApplication::activeWindow(), sheet);
      EXPECT_TRUE(TestWindow::Focus()->accessibleDescription().isEmpty());
      EXPECT_FALSE(TestWindow::FindWidget("sheet_Problem")->isVisible());
      Paste(field, input.text);
      EXPECT_TRUE(ok->isEnabled());
      ok->click();
      ok->click();
      test.Wait({});
      EXPECT_EQ(app().sheets().Current(), Sheet::None);
      EXPECT_NE(app().desk().SelectedAccount(), nullptr);
      EXPECT_EQ(TestWindow::FocusName(), QLatin1String("accountsDrawer_Accounts_Table"));
    }
  }
}

}  // namespace
}  // namespace tallyfold::desktop

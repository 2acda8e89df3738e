#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QMenu>
#include <QTabBar>
#include <QTableView>
#include <filesystem>

#include "app/desk.h"
#include "app/shell/tabs.h"
#include "app/views/registers.h"
#include "desktop/example.h"
#include "desktop/test_window.h"
#include "fakes/file_text.h"
#include "model/account.h"
#include "registers/account_table_view_data.h"

namespace tallyfold::desktop {

void PrintTo(const QString& text, std::ostream* out) {
  *out << '"' << text.toStdString() << '"';
}

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

int CurrentRow(const char* table) {
  return TestWindow::Find<QTableView>(table)->currentIndex().row();
}

bool IsVisible(const char* name) {
  try {
    return TestWindow::FindWidget(name)->isVisible();
  } catch (const std::logic_error&) {
    return false;
  }
}

class Window : public testing::Test {
 protected:
  Window() : test(ExampleAccounts()) { EXPECT_TRUE(test.Launch()); }

  [[nodiscard]] LDGRController& app() { return test.program->app(); }

  TestWindow test;
};

TEST_F(Window, OpensOnTheEntriesOfTheFirstAccountWithTheFocusInTheSearch) {
  EXPECT_EQ(test.program->window().windowTitle(), "Tallyfold:  Joint checking"_q);
  EXPECT_EQ(test.Find<QTabBar>("main_TabView")->currentIndex(), 0);
  EXPECT_EQ(test.FocusName(), "search_Field"_q);
  ASSERT_EQ(test.Rows("entry_Table"), 23);
  EXPECT_EQ(test.Row("entry_Table", 0),
            "01/02/26|1001|Check|January rent|Ms Okafor|\u2713|-$890.00|$360.00"_q);
  EXPECT_EQ(test.Row("accountsDrawer_Accounts_Table", 1), "Joint checking|$2,725.58"_q);
  EXPECT_EQ(test.TextOf("accountsDrawer_Total_Field"), "$8,193.26"_q);
  EXPECT_EQ(test.TextOf("accountBalance_Field"), "$2,725.58"_q);
  EXPECT_EQ(test.TextOf("rows_Label"), "23 entries, sum $1,475.58"_q);
  EXPECT_FALSE(IsVisible("notice_Label"));
}

TEST_F(Window, SearchesHalfASecondAfterTheLastKeyAndGoesOnInTheRows) {
  test.Type("Week");
  EXPECT_EQ(test.Rows("entry_Table"), 23);
  test.Wait(milliseconds(500));
  EXPECT_EQ(test.Rows("entry_Table"), 6);
  EXPECT_EQ(test.TextOf("rows_Label"), "6 of 23 entries, sum -$400.97"_q);
  test.Type("x");
  test.Wait(milliseconds(500));
  EXPECT_EQ(test.Rows("entry_Table"), 0);
  test.Click("showAll_Button");
  EXPECT_EQ(test.Rows("entry_Table"), 23);

  test.Find<QLineEdit>("search_Field")->setFocus();
  test.Type("Gift");
  test.Key(Qt::Key_Escape);
  EXPECT_EQ(test.FocusName(), "search_Field"_q);
  test.Key(Qt::Key_Escape);
  EXPECT_EQ(test.FocusName(), "entry_Table"_q);
}

TEST_F(Window, MarksAreTurnedOverAndUndoneFromWhereTheKeysGo) {
  // A narrow window has no room for the check box.
  EXPECT_FALSE(IsVisible("showUnresolved_CheckBox"));
  test.program->window().resize(1280, 832);
  test.Key(Qt::Key_2, Qt::AltModifier);
  ASSERT_EQ(test.Find<QTabBar>("main_TabView")->currentIndex(), 1);
  test.Fill("statementBalance_Field", "2x");
  test.Key(Qt::Key_Return);
  EXPECT_EQ(test.TextOf("difference_Field"), "-$2,858.13"_q);
  test.Fill("statementBalance_Field", "2791.93");
  test.Key(Qt::Key_Return);
  EXPECT_EQ(test.TextOf("difference_Field"), "-$66.20"_q);
  test.Click("explanation_Select_Button");
  EXPECT_EQ(test.FocusName(), "reconcile_Table"_q);
  EXPECT_EQ(CurrentRow("reconcile_Table"), 22);
  test.Key(Qt::Key_Space);
  EXPECT_EQ(test.TextOf("difference_Field"), "Balanced"_q);

  // The search field has nothing of its own to undo.
  test.Find<QLineEdit>("search_Field")->setFocus();
  test.Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(test.TextOf("difference_Field"), "-$66.20"_q);
  test.Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(test.TextOf("difference_Field"), "Balanced"_q);

  test.Click("showUnresolved_CheckBox");
  EXPECT_EQ(test.Rows("reconcile_Table"), 3);
  EXPECT_FALSE(test.Find<QLineEdit>("search_Field")->isEnabled());
  test.Click("showUnresolved_CheckBox");
  EXPECT_EQ(test.Rows("reconcile_Table"), 23);
}

TEST_F(Window, SortsByItsHeadersAndKeepsTheEntrySelected) {
  test.ClickRow("entry_Table", 4);
  const QString selected = test.Row("entry_Table", 4);
  test.ClickHeader("entry_Table", 0);
  ASSERT_GE(CurrentRow("entry_Table"), 0);
  EXPECT_NE(CurrentRow("entry_Table"), 4);
  EXPECT_EQ(test.Row("entry_Table", CurrentRow("entry_Table")), selected);

  test.ClickHeader("accountsDrawer_Accounts_Table", 0);
  EXPECT_EQ(test.Row("accountsDrawer_Accounts_Table", 0), "Savings|$5,375.68"_q);
  test.ClickRow("accountsDrawer_Accounts_Table", 0);
  EXPECT_EQ(test.program->window().windowTitle(), "Tallyfold:  Savings"_q);
  test.Key(Qt::Key_1, Qt::ControlModifier);
  EXPECT_EQ(test.program->window().windowTitle(), "Tallyfold:  Joint checking"_q);
}

TEST_F(Window, HidesColumnsAndSortsByThemByKeysToo) {
  const auto choose = [this](std::initializer_list<Qt::Key> keys) {
    test.Key(Qt::Key_V, Qt::AltModifier);
    for (const Qt::Key key : keys) test.Key(key);
    test.Wait(std::chrono::milliseconds(1));
  };
  const TableState& table = *app().registers().entryDataSource().GetTableView();
  choose({Qt::Key_Up, Qt::Key_Right, Qt::Key_Up, Qt::Key_Return});
  EXPECT_EQ(table.HighlightedColumn(), "amount");
  choose({Qt::Key_Up, Qt::Key_Right, Qt::Key_Down, Qt::Key_Return});
  EXPECT_EQ(table.HiddenColumns().size(), 1u);
}

TEST_F(Window, IsWalkedAndOrderedByKeysAlone) {
  QStringList stops;
  for (int i = 0; i < 5; ++i) {
    test.Key(Qt::Key_F6);
    stops.append(test.FocusName());
  }
  EXPECT_EQ(stops.join(QLatin1Char(' ')),
            "entry_Table accountBalance_PopUp accountsDrawer_Accounts_Table main_TabView "
            "search_Field"_q);
  test.Key(Qt::Key_F6);
  test.Key(Qt::Key_Home);
  test.Key(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(test.TextOf("rows_Label"), "2 of 23 selected, sum $1,560.00"_q);
  // An arrow only moves: an account may ask for its password.
  test.FindWidget("accountsDrawer_Accounts_Table")->setFocus();
  test.Key(Qt::Key_Down);
  EXPECT_EQ(test.program->window().windowTitle(), "Tallyfold:  Joint checking"_q);
  test.Key(Qt::Key_Return);
  EXPECT_EQ(test.program->window().windowTitle(), "Tallyfold:  Savings"_q);
  test.Key(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(test.Find<QTabBar>("main_TabView")->currentIndex(), 1);
}

TEST_F(Window, AsksBeforeItRemovesAndNothingUnderTheQuestionCanBeUsed) {
  const QString half = "01/05/26||Transfer To|Put aside|Savings|\u2713|-$300.00|$2,436.25"_q;
  test.ClickRow("entry_Table", 3);
  ASSERT_EQ(test.Row("entry_Table", 3), half);
  test.Key(Qt::Key_Delete);
  ASSERT_TRUE(IsVisible("entryRemoveConfirm_OK_Button"));
  test.ClickRow("entry_Table", 0);
  EXPECT_EQ(CurrentRow("entry_Table"), 3);
  test.program->window().close();
  EXPECT_TRUE(test.host.Requests().empty());
  test.Key(Qt::Key_Escape);
  EXPECT_FALSE(IsVisible("entryRemoveConfirm_OK_Button"));
  EXPECT_EQ(test.Rows("entry_Table"), 23);

  test.Key(Qt::Key_Delete);
  test.Key(Qt::Key_Return);
  test.Click("transferEntryRemoveConfirm_No_Button");
  EXPECT_EQ(test.Rows("entry_Table"), 22);
  test.Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(test.Row("entry_Table", 3), half);
}

TEST_F(Window, OrdersGoToAllSelectedRowsAndAreOneStep) {
  const auto order = [this](const char* name) {
    test.program->window().findChild<QAction*>(QLatin1String(name))->trigger();
    test.Settle();
  };
  test.ClickRow("entry_Table", 0);
  for (int i = 0; i < 3; ++i) test.Key(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(test.TextOf("rows_Label"), "4 of 23 selected, sum $1,186.25"_q);
  order("currentTableDataSource_Cleared_CheckBox");
  EXPECT_EQ(
      test.Row("entry_Table", 1).count(u'\u2713') + test.Row("entry_Table", 3).count(u'\u2713'), 0);
  order("currentTableDataSource_Cleared_CheckBox");
  EXPECT_EQ(test.Row("entry_Table", 3).count(u'\u2713'), 1);

  // The types of the current one's kind, given to those of that kind; the transfer stays.
  const auto type_of = [this](int row) {
    return test.Row("entry_Table", row).section(QLatin1Char('|'), 2, 2);
  };
  test.ClickRow("entry_Table", 3);
  test.Key(Qt::Key_Up, Qt::ShiftModifier);
  for (QAction* action :
       test.program->window().findChild<QMenu*>("entryMenu_Types_Menu"_q)->actions()) {
    if (action->text().remove(u'&') != "Health"_q) continue;
    action->trigger();
    // The menu is another now.
    break;
  }
  EXPECT_EQ(type_of(2), "Health"_q);
  EXPECT_EQ(type_of(3), "Transfer To"_q);
  order("Undo");
  EXPECT_EQ(type_of(2), "Groceries"_q);
  test.ClickRow("entry_Table", 0);
  for (int i = 0; i < 3; ++i) test.Key(Qt::Key_Down, Qt::ShiftModifier);

  // The other half of the transfer among them is in the account they would move to.
  auto* move = test.program->window().findChild<QMenu*>("entryMenu_Move_Menu"_q);
  const auto move_to = [&](const QString& account) {
    emit static_cast<QMenu*>(test.program->window().findChild<QMenu*>("row_Menu"_q))->aboutToShow();
    for (QAction* action : move->actions()) {
      if (action->text().remove(u'&') == account) return action->trigger();
    }
    ADD_FAILURE() << "no account " << account.toStdString();
  };
  move_to("Savings"_q);
  EXPECT_EQ(test.Rows("entry_Table"), 23);
  EXPECT_FALSE(test.TextOf("notice_Label").isEmpty());
  test.Click("notice_Close_Button");
  EXPECT_FALSE(IsVisible("notice_Label"));
  move_to("Cash"_q);
  EXPECT_EQ(test.Rows("entry_Table"), 19);
  order("Undo");
  EXPECT_EQ(test.Rows("entry_Table"), 23);

  test.ClickRow("entry_Table", 1);
  test.Key(Qt::Key_Down, Qt::ShiftModifier);
  order("EntryRemoveConfirm_Begin");
  test.Key(Qt::Key_Return);
  EXPECT_EQ(test.Rows("entry_Table"), 21);
  order("Undo");
  EXPECT_EQ(test.Rows("entry_Table"), 23);
}

TEST_F(Window, GoesToADayAndToWhatIsFoundInAnyAccount) {
  test.Key(Qt::Key_G, Qt::ControlModifier);
  ASSERT_EQ(test.FocusName(), "dateJump_Field"_q);
  test.Type("no day");
  test.Key(Qt::Key_Return);
  EXPECT_TRUE(IsVisible("dateJump_Panel"));
  test.Find<QLineEdit>("dateJump_Field")->selectAll();
  test.Type("1/28");
  test.Key(Qt::Key_Return);
  EXPECT_FALSE(IsVisible("dateJump_Panel"));
  EXPECT_EQ(CurrentRow("entry_Table"), 12);

  test.program->window().activateWindow();
  test.Settle();
  test.Key(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  ASSERT_EQ(test.FocusName(), "find_Field"_q);
  test.Type("Put aside");
  test.Key(Qt::Key_Return);
  EXPECT_EQ(test.Rows("find_Table"), 4);
  EXPECT_EQ(test.TextOf("find_Label"), "4 entries found"_q);
  test.Key(Qt::Key_Down);
  test.Key(Qt::Key_End);
  test.Key(Qt::Key_Return);
  EXPECT_NE(test.program->window().windowTitle(), "Tallyfold:  Joint checking"_q);
  EXPECT_EQ(app().desk().SelectedEntry()->GetDescription(), "Put aside");
  test.FindWidget("find_Table")->activateWindow();
  test.Settle();
  test.Key(Qt::Key_Escape);
  EXPECT_FALSE(IsVisible("find_Panel"));
}

TEST_F(Window, ShowsWhatIsScheduledAndTheSummaries) {
  test.Key(Qt::Key_3, Qt::AltModifier);
  ASSERT_EQ(test.Rows("schedule_Table"), 4);
  test.ClickRow("schedule_Table", 1);
  EXPECT_EQ(app().desk().SelectedSchedule()->GetDescription(), "Pay");
  EXPECT_FALSE(IsVisible("search_Field"));
  // The key is that of the table; the selected entry is out of sight.
  app().desk().SelectEntry(app().desk().SelectedAccount()->GetEntries().front());
  test.Key(Qt::Key_Delete);
  EXPECT_EQ(app().sheets().Current(), Sheet::ScheduleRemoveConfirm);
  test.Key(Qt::Key_Escape);
  test.FindWidget("accountsDrawer_Accounts_Table")->setFocus();
  test.Key(Qt::Key_Delete);
  EXPECT_EQ(app().sheets().Current(), Sheet::None);
  test.Key(Qt::Key_4, Qt::AltModifier);
  EXPECT_EQ(test.Rows("summary_Table"), 12);
  EXPECT_EQ(test.TextOf("summary_Title"), "Custom..."_q);
  test.FindWidget("summary_Table")->setFocus();
  test.Key(Qt::Key_Down);
  EXPECT_EQ(test.TextOf("summary_Title"), "All Entries, Month To Date"_q);
  // What a line counts is seen in the register.
  test.FindWidget("summary_Periods")->setFocus(Qt::TabFocusReason);
  test.Key(Qt::Key_End);
  test.Key(Qt::Key_Return);
  EXPECT_EQ(test.Find<QTabBar>("main_TabView")->currentIndex(), 0);
  EXPECT_EQ(test.FocusName(), "entry_Table"_q);
  EXPECT_EQ(test.TextOf("rows_Label"), "10 of 23 selected, sum $840.20"_q);
}

TEST_F(Window, WhatIsTypedIsSavedAtTheEndAndAskedAboutWhereThatFails) {
  test.Key(Qt::Key_2, Qt::AltModifier);
  auto* statement = test.Find<QLineEdit>("statementBalance_Field");
  statement->setFocus();
  statement->selectAll();
  test.Type("77.5");
  test.program->window().close();
  EXPECT_EQ(test.host.Requests(), std::vector<std::string>{"terminate"});

  test.files.FailAtStep(1, FakeFileSystem::Failing::ForEverAfter);
  test.alerts.Answer("Try Again");
  test.alerts.Answer("Quit");
  EXPECT_EQ(test.program->Save(Ending::Asker::User), Ending::Outcome::Unsaved);
  EXPECT_EQ(test.alerts.Requests().size(), 2u);
  EXPECT_EQ(test.program->Save(Ending::Asker::Nobody), Ending::Outcome::Unsaved);
  EXPECT_EQ(test.alerts.Requests().size(), 2u);
  test.files.StopFailing();
  EXPECT_EQ(test.program->Save(Ending::Asker::Nobody), Ending::Outcome::Saved);
  EXPECT_NE(test.files.Read(TestWindow::kAccountsFile)->view().find("77.5"),
            std::string_view::npos);
}

std::string ProtectedAccounts() {
  std::string accounts = ExampleAccounts();
  const std::string none = "<key>password</key>\n\t<string></string>";
  const std::size_t place = accounts.rfind(none);
  EXPECT_NE(place, std::string_view::npos);
  accounts.replace(place, none.size(), "<key>password</key>\n\t<string>open</string>");
  return accounts;
}

TEST(EmptyWindow, SaysWhatToDoNext) {
  TestWindow test("");
  EXPECT_TRUE(test.Launch());
  test.Key(Qt::Key_Escape);
  EXPECT_TRUE(IsVisible("empty_Account_Button"));
  EXPECT_FALSE(IsVisible("unlock_Button"));
}

TEST(Example, IsAFreshCopyInAHomeFolderOfItsOwn) {
  FakeProcessLauncher processes;
  EXPECT_TRUE(OpenExample(processes, "/bin/tallyfold"));
  const std::string launched = processes.Launched().at(0);
  const std::string start = "/usr/bin/env HOME=";
  ASSERT_EQ(launched.substr(0, start.size()), start);
  const std::string home =
      launched.substr(start.size(), launched.find(' ', start.size()) - start.size());
  EXPECT_EQ(FileText(home + "/Library/Tallyfold/Accounts.plist"), ExampleAccounts());
  EXPECT_TRUE(launched.ends_with("/bin/tallyfold --example"));
  std::filesystem::remove_all(home);
}

TEST(LockedWindow, ShowsNothingUntilThePasswordIsRight) {
  TestWindow test(ProtectedAccounts());
  EXPECT_TRUE(test.Launch());
  EXPECT_EQ(test.Rows("entry_Table"), 0);
  EXPECT_EQ(test.Rows("accountsDrawer_Accounts_Table"), 0);
  auto* ok = test.Find<QAbstractButton>("authenticationSheet_OK_Button");
  test.Type("ope");
  EXPECT_FALSE(ok->isEnabled());
  test.Type("n");
  EXPECT_TRUE(ok->isEnabled());
  test.Key(Qt::Key_Return);
  test.Wait(milliseconds(0));
  EXPECT_FALSE(IsVisible("authenticationSheet_OK_Button"));
  EXPECT_EQ(test.Rows("entry_Table"), 23);

  test.Key(Qt::Key_L, Qt::ControlModifier);
  EXPECT_EQ(test.Rows("entry_Table"), 0);
  EXPECT_EQ(test.program->window().windowTitle(), "Tallyfold:  No Account Selected"_q);
  test.Key(Qt::Key_Escape);
  EXPECT_EQ(test.host.Requests(), std::vector<std::string>{"terminate"});
}

}  // namespace
}  // namespace tallyfold::desktop

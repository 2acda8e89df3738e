#include "desktop/shots.h"

#include <QAbstractItemView>
#include <QAction>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTimer>
#include <functional>
#include <optional>

#include "app/accounts/account_editing.h"
#include "app/accounts/account_selection.h"
#include "app/accounts/accounts_drawer.h"
#include "app/controller.h"
#include "app/desk.h"
#include "app/entries/entry_editing.h"
#include "app/entries/entry_orders.h"
#include "app/exchange/export_commands.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "app/schedules/schedule_editing.h"
#include "app/schedules/schedule_reminder.h"
#include "app/shell/about_sheet.h"
#include "app/shell/application_lock.h"
#include "app/shell/backups_list.h"
#include "app/shell/backups_sheet.h"
#include "app/shell/preferences_sheet.h"
#include "app/shell/tabs.h"
#include "app/shell/update_check.h"
#include "app/views/account_summary_sheet.h"
#include "app/views/account_summary_tab.h"
#include "app/views/reconcile_tab.h"
#include "desktop/services/qt_alerts.h"
#include "desktop/shots_exchange.h"
#include "desktop/tool_bars.h"
#include "filters/register_search.h"
#include "model/account.h"
#include "platform/progress.h"
#include "storage/preferences.h"

namespace tallyfold::desktop {

void ForEachShot(const ShotTaker& take, const PanelTaker& take_panel) {
  const std::string example = ExampleAccounts();
  const auto show = [&take, &example](const char* name,
                                      const std::function<void(TestWindow&)>& state) {
    take(QLatin1String(name), example, state);
  };
  show("entries", [](TestWindow& test) { test.ClickRow("entry_Table", 19); });
  show("reconcile", [](TestWindow& test) {
    test.program->app().tabs().Select(Tab::Reconcile);
    test.program->app().reconcileTab().StatementBalance_EndEditing(2791.93);
  });
  show("schedule", [](TestWindow& test) { test.program->app().tabs().Select(Tab::Schedule); });
  show("summary", [](TestWindow& test) {
    test.program->app().tabs().Select(Tab::Summary);
    test.program->app().summaries().Select(3);
  });
  show("hundred-thousand", [](TestWindow& test) {
    AddEntries(test, 100'000);
    test.ClickRow("entry_Table", 6);
    test.Find<QAbstractItemView>("entry_Table")->verticalScrollBar()->setValue(1'300'000);
  });
  show("no-account", [](TestWindow& test) {
    const auto account = test.program->app().desk().SelectedAccount();
    account->SetPassword("open");
    test.program->app().selection().Account_Select(account);
    test.program->window().findChild<QAction*>(QLatin1String("Account_Lock"))->trigger();
  });
  show("smallest-open-filter", [](TestWindow& test) {
    test.program->window().resize(test.program->window().minimumSize());
    test.program->app().search().Filter_Select(41);
  });
  show("nothing-matches", [](TestWindow& test) {
    test.Type("Nothing like this");
    test.Wait(std::chrono::seconds(1));
  });
  show("removal", [](TestWindow& test) {
    test.ClickRow("entry_Table", 3);
    test.Key(Qt::Key_Delete);
  });
  show("debit", [](TestWindow& test) {
    test.program->app().entries().New(EntryKind::Debit);
    test.Click("debitSheet_Description_Field");
    test.Type("Week 8");
  });
  show("debit-split-refused", [](TestWindow& test) {
    test.program->app().entries().New(EntryKind::Debit);
    test.Click("debitSheet_CheckNumber_Button");
    test.Find<QLineEdit>("debitSheet_CheckNumber_Field")->clear();
    test.Click("debitSheet_CheckNumber_Field");
    test.Type("-5");
    test.Click("debitSheet_Amount_Field");
    test.Type("50");
    test.Click("debitSheet_Split_Button");
    for (const char* text : {"Lunch", "Inn", "18.60"}) {
      test.Type(text);
      test.Key(Qt::Key_Tab);
    }
    test.Click("debitSheet_OK_Button");
  });
  show("deposit", [](TestWindow& test) { test.program->app().entries().New(EntryKind::Deposit); });
  show("transfer", [](TestWindow& test) {
    test.program->app().entries().New(EntryKind::Transfer);
    test.Click("transferSheet_Amount_Field");
    test.Type("300");
  });
  show("schedule-sheet", [](TestWindow& test) {
    test.program->app().scheduleSheet().New(EntryKind::Deposit);
    test.Find<QLineEdit>("scheduleSheet_Start_Field")->setText(QStringLiteral("03/31/26"));
    test.Find<QLineEdit>("scheduleSheet_Description_Field")->setText(QStringLiteral("Pay"));
  });
  show("reminder", [](TestWindow& test) {
    static_cast<void>(test.program->app().reminder().Open());
    test.program->app().reminder().scheduleReminderSheet_LookAhead("14");
  });
  show("reminder-folded", [](TestWindow& test) {
    // Each day, and so more often than a row each would be of use.
    const auto& account = *test.program->app().desk().SelectedAccount();
    account.GetSchedules()[1]->SetRepeatIntervalType(1);
    account.GetSchedules()[1]->SetRepeatInterval(1);
    test.ambient.clock.SetLocal({2026, 4, 24, 12, 0, 0});
    static_cast<void>(test.program->app().reminder().Open());
  });
  show("transfer-refused", [](TestWindow& test) {
    test.program->app().entries().New(EntryKind::Transfer);
    test.Click("transferSheet_Amount_Field");
    test.Type("12x");
    test.Click("transferSheet_OK_Button");
  });
  show("removal-of-half", [](TestWindow& test) {
    test.ClickRow("entry_Table", 3);
    test.Key(Qt::Key_Delete);
    test.Click("entryRemoveConfirm_OK_Button");
  });
  show("about-license", [](TestWindow& test) {
    test.program->app().about().Open();
    test.Settle();
    test.Click("aboutSheet_License_Button");
  });
  show("reminder-refused", [](TestWindow& test) {
    static_cast<void>(test.program->app().reminder().Open());
    test.program->app().reminder().scheduleReminderSheet_LookAhead("400");
    test.Key(Qt::Key_Tab, Qt::ShiftModifier);
    test.FindWidget("scheduleReminderSheet_Table")->setFocus();
    test.Key(Qt::Key_Space);
    test.Type("8x");
    test.Key(Qt::Key_Return);
    test.Click("scheduleReminderSheet_Commit_Button");
  });
  show("schedule-sheet-refused", [](TestWindow& test) {
    test.program->app().scheduleSheet().New(EntryKind::Debit);
    test.Settle();
    test.Find<QLineEdit>("scheduleSheet_Start_Field")->setText(QStringLiteral("05/01/27"));
    test.Click("scheduleSheet_PrecedingFriday_Button");
    test.Click("scheduleSheet_Amount_Field");
    test.Type("12x");
    test.Click("scheduleSheet_OK_Button");
  });
  show("summary-options", [](TestWindow& test) {
    test.program->app().tabs().Select(Tab::Summary);
    test.program->app().summaries().Select(3);
    static_cast<void>(test.program->app().summarySheet().Open());
  });
  show("summary-options-refused", [](TestWindow& test) {
    test.program->app().tabs().Select(Tab::Summary);
    static_cast<void>(test.program->app().summarySheet().Open());
    test.Find<QLineEdit>("accountSummarySheet_Name_Field")->clear();
    test.Type(" ");
    test.Click("accountSummarySheet_OK_Button");
  });
  ShowExchange(show, take_panel);
  show("updates", [](TestWindow& test) { test.program->app().updates().CheckForUpdates(); });
  show("several-selected", [](TestWindow& test) {
    test.ClickRow("entry_Table", 6);
    for (int i = 0; i < 3; ++i) test.Key(Qt::Key_Down, Qt::ShiftModifier);
  });
  show("refused", [](TestWindow& test) {
    test.ClickRow("entry_Table", 3);
    const auto& desk = test.program->app().desk();
    test.program->app().entryOrders().MoveTo({desk.SelectedEntry()},
                                             desk.accounts()[1]->GetNumber());
  });
  show("drawer-below", [](TestWindow& test) {
    test.program->app().desk().preferences().SetAccountsDrawerPreferredEdge(1);
    test.program->window().ShowDrawer();
  });
  show("find", [](TestWindow& test) {
    test.Key(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    test.Type("Put aside");
    test.Key(Qt::Key_Return);
  });
  show("go-to-date", [](TestWindow& test) { test.Key(Qt::Key_G, Qt::ControlModifier); });
  show("smallest-reconcile", [](TestWindow& test) {
    test.program->app().tabs().Select(Tab::Reconcile);
    test.program->window().resize(test.program->window().minimumSize());
  });
  show("narrow-reconcile", [](TestWindow& test) {
    test.program->app().desk().preferences().SetAccountsDrawerWidth(450);
    test.program->window().resize(900, 600);
    test.program->app().tabs().Select(Tab::Reconcile);
    test.program->app().accountsDrawer().ToggleAccountsDrawer();
    test.program->app().accountsDrawer().ToggleAccountsDrawer();
    TestWindow::Settle();
  });
  show("narrow-tools",
       [](TestWindow& test) { test.program->window().pieces().tools->setFixedWidth(480); });
  show("late-schedule", [](TestWindow& test) {
    test.ambient.clock.Advance(std::chrono::hours(24 * 8));
    test.program->app().refresh().DayChanged();
    test.program->app().tabs().Select(Tab::Schedule);
    test.ClickRow("schedule_Table", 1);
  });
  show("smallest", [](TestWindow& test) {
    test.program->window().resize(test.program->window().minimumSize());
  });
  const auto edit_account = [](TestWindow& test, int page) {
    test.program->app().accountSheet().Account_Edit();
    test.Settle();
    test.Find<QListWidget>("accountEditSheet_TabView")->setCurrentRow(page);
  };
  show("account", [&](TestWindow& test) { edit_account(test, 0); });
  show("account-types", [&](TestWindow& test) {
    edit_account(test, 1);
    test.ClickRow("accountEditSheet_Types_Table", 4);
    test.Click("accountEditSheet_Types_Remove_Button");
    test.ClickRow("accountEditSheet_Types_Table", 9);
    test.Click("accountEditSheet_Types_Remove_Button");
    test.ClickRow("accountEditSheet_Types_Table", 5);
  });
  show("account-types-edited", [&](TestWindow& test) {
    edit_account(test, 1);
    test.ClickRow("accountEditSheet_Types_Table", 5);
    test.Click("accountEditSheet_Types_Add_Button");
    test.Key(Qt::Key_Return);
    test.Key(Qt::Key_Right);
    test.Key(Qt::Key_F2);
  });
  show("account-descriptions", [&](TestWindow& test) {
    edit_account(test, 2);
    test.Click("accountEditSheet_Descriptions_Style_2_Button");
    for (const char* text : {"Rent", "Water"}) {
      test.Click("accountEditSheet_Descriptions_Add_Button");
      test.Type(text);
    }
    test.Key(Qt::Key_Return);
  });
  show("account-to-from", [&](TestWindow& test) { edit_account(test, 3); });
  show("account-password-refused", [&](TestWindow& test) {
    edit_account(test, 4);
    test.Click("accountEditSheet_Password_Field");
    test.Type("secret");
    test.Click("accountEditSheet_OK_Button");
  });
  show("account-refused", [&](TestWindow& test) {
    edit_account(test, 0);
    test.Find<QLineEdit>("accountEditSheet_StartingBalance_Field")->clear();
    test.Click("accountEditSheet_StartingBalance_Field");
    test.Type("12x");
    test.Click("accountEditSheet_OK_Button");
  });
  std::optional<LongOperation> operation;
  show("waiting", [&operation](TestWindow& test) {
    operation.emplace(LongWork::Saving, 100);
    test.ambient.clock.Advance(std::chrono::seconds(1));
    LongOperation::Reached(LongWork::Saving, 40);
  });
  operation.reset();
  show("backups", [](TestWindow& test) {
    LDGRController& app = test.program->app();
    test.files.AddFile("/home/user/Library/Tallyfold/Backups/Accounts_2_7_2026_1.0.0", "nothing");
    const auto& account = *app.desk().SelectedAccount();
    for (const int row : {3, 5}) {
      app.desk().SelectEntry(account.GetEntries()[static_cast<std::size_t>(row)]);
      app.entryOrders().Entry_ChangeKind();
    }
    test.ClickRow("entry_Table", 21);
    test.Key(Qt::Key_Delete);
    test.Click("entryRemoveConfirm_OK_Button");
    app.backups().BackUpNow();
    app.backupsSheet().Open();
    test.Wait(std::chrono::seconds(1));
    test.Key(Qt::Key_Down);
    test.Wait(std::chrono::seconds(1));
  });
  show("about", [](TestWindow& test) { test.program->app().about().Open(); });
  show("locked", [](TestWindow& test) {
    test.program->app().applicationLock().setPassword("secret");
    test.program->app().applicationLock().lock();
    test.Type("SECR");
  });
  show("password", [](TestWindow& test) {
    LDGRController& app = test.program->app();
    const auto other = app.desk().accounts()[1];
    other->SetPassword("secret");
    other->setAuthenticated(false);
    app.selection().Account_Select(other);
    test.Type("secret");
  });
  for (int page = 0; page < 9; ++page) {
    const QString name = QLatin1String("preferences-") + QString::number(page);
    take(name, example, [page](TestWindow& test) {
      static_cast<void>(test.program->app().preferencesSheet().Open());
      test.Settle();
      test.Find<QListWidget>("preferencesSheet_TabView")->setCurrentRow(page);
    });
  }
  for (int chapter = 0; chapter < 9; chapter += 8) {
    const QString name = QLatin1String("help-") + QString::number(chapter);
    take(name, example, [chapter](TestWindow& test) {
      test.Key(Qt::Key_F1);
      test.Find<QListWidget>("help_Chapters_List")->setCurrentRow(chapter);
    });
  }
  show("preferences-color", [](TestWindow& test) {
    static_cast<void>(test.program->app().preferencesSheet().Open());
    test.Settle();
    test.Find<QListWidget>("preferencesSheet_TabView")->setCurrentRow(2);
    test.Click("preferencesSheet_debitColor");
  });
  show("calendar", [](TestWindow& test) {
    test.program->app().entries().New(EntryKind::Debit);
    test.Click("debitSheet_Date_Field");
    test.Key(Qt::Key_Down, Qt::AltModifier);
  });
  show("alert", [&take_panel](TestWindow& test) {
    // What an export asks of a name that is there already.
    test.files.AddFile("/home/user/household.qif", "");
    test.panels.Answer("/home/user/household.qif");
    static_cast<void>(test.program->app().exports().ExportQIF());
    QtAlerts alerts;
    QTimer::singleShot(0, [&take_panel] {
      QWidget* box = TestWindow::FindWidget("alert");
      take_panel(QLatin1String("alert-panel"), *box);
      box->close();
    });
    static_cast<void>(alerts.Run(test.alerts.Requests().back()));
  });
  take(QLatin1String("empty"), "",
       [](TestWindow& test) { test.program->app().sheets().CancelOpen(); });
}

}  // namespace tallyfold::desktop

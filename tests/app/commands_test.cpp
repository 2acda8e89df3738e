#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <set>
#include <tuple>

#include "app/accounts/account_editing.h"
#include "app/accounts/account_selection.h"
#include "app/commands/command.h"
#include "app/commands/command_tables.h"
#include "app/entries/entry_editing.h"
#include "app/entries/entry_removal.h"
#include "app/exchange/qif_import_command.h"
#include "app/exchange/qif_import_controller.h"
#include "app/schedules/schedule_editing.h"
#include "app/schedules/schedule_reminder.h"
#include "app/schedules/schedules_tab.h"
#include "app/shell/application_lock.h"
#include "app/shell/menus.h"
#include "app/shell/preferences_sheet.h"
#include "app/shell/tabs.h"
#include "app/shell/update_check.h"
#include "app/test_application.h"
#include "app/views/account_summary_sheet.h"
#include "model/account.h"
#include "storage/preferences.h"

namespace tallyfold {
namespace {

struct State {
  const char* name;
  std::function<void(TestApplication&)> reach;
};

void AddTwoAccounts(TestApplication& test) {
  test.AddAccount("B")->SetPassword("");
  test.AddAccount("A");
  test.app.applicationLock().setPassword("x");
}

void AddEntries(TestApplication& test) {
  AddTwoAccounts(test);
  test.AddTransferTo(*test.app.desk().accounts().front(), 5.0);
  test.AddDebit(1.0, "Lunch");
}

void AddSchedule(TestApplication& test) {
  AddTwoAccounts(test);
  auto& sheet = test.app.scheduleSheet();
  sheet.New(EntryKind::Debit);
  auto typed = sheet.State().typed;
  typed.start = 20040301;
  typed.amount = 5.0;
  sheet.Read(typed);
  sheet.OK();
}

void Import(TestApplication& test) {
  AddTwoAccounts(test);
  test.files.AddFile("/home/user/bank.qif", "!Type:Bank\nD3/1/04\nT-5.00\n^\n");
  test.panels.Answer("/home/user/bank.qif");
  test.app.importCommand().QIFImport();
}

const State kStates[] = {
    {"no account", [](TestApplication&) {}},
    {"an account without entries", AddTwoAccounts},
    {"an entry is selected", AddEntries},
    {"half of a transfer is selected",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.desk().SelectEntry(test.app.desk().SelectedAccount()->GetEntries().front());
     }},
    {"the account has a password",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.desk().SelectedAccount()->SetPassword("y");
       test.app.desk().SelectedAccount()->setAuthenticated(true);
     }},
    {"a scheduled entry is selected", AddSchedule},
    {"the schedule tab shows",
     [](TestApplication& test) {
       AddSchedule(test);
       test.app.tabs().Select(Tab::Schedule);
     }},
    {"the summary tab shows",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.tabs().Select(Tab::Summary);
     }},
    {"the debit sheet is open",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.entries().Entry_Edit();
     }},
    {"a suggestion stands in the debit sheet",
     [](TestApplication& test) {
       AddEntries(test);
       auto& sheet = test.app.entries().Debit();
       test.app.entries().New(EntryKind::Debit);
       auto typed = sheet.State().typed;
       typed.description = "Lunch";
       sheet.Read(typed);
       test.app.entries().SuggestForDescription();
     }},
    {"the deposit sheet is open",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.entries().New(EntryKind::Deposit);
     }},
    {"the transfer sheet is open",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.entries().New(EntryKind::Transfer);
     }},
    {"it asks before removing",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.entryRemoval().EntryRemoveConfirm_Begin();
     }},
    {"it asks for the other half",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.desk().SelectEntry(test.app.desk().SelectedAccount()->GetEntries().front());
       test.app.entryRemoval().TransferEntryRemoveConfirm_Begin();
     }},
    {"the schedule sheet is open",
     [](TestApplication& test) {
       AddSchedule(test);
       test.app.scheduleSheet().Edit();
     }},
    {"it asks before removing a schedule",
     [](TestApplication& test) {
       AddSchedule(test);
       test.app.schedules().ScheduleRemoveConfirm_Begin();
     }},
    {"the reminder is open",
     [](TestApplication& test) {
       AddSchedule(test);
       test.app.reminder().Open();
     }},
    {"the reminder is open and empty",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.reminder().Open();
     }},
    {"the account sheet is open",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.accountSheet().Account_Edit();
     }},
    {"the account sheet has no name",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.accountSheet().Account_Edit();
       auto typed = test.app.accountSheet().State().typed;
       typed.name = "";
       test.app.accountSheet().Read(typed);
     }},
    {"the summary sheet is open",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.summarySheet().Open();
     }},
    {"the preferences are open",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.preferencesSheet().Open();
     }},
    {"the passwords in the preferences differ",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.preferencesSheet().Open();
       test.app.preferencesSheet().PasswordValidate("a", "b");
     }},
    {"the options of an import are open", Import},
    {"an import is under review",
     [](TestApplication& test) {
       Import(test);
       test.app.sharedQIFImportController().ImportOptions_OK();
     }},
    {"it is locked",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.applicationLock().lock();
     }},
    {"it is locked, and the password is typed",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.applicationLock().lock();
       test.app.applicationLock().ValidatePassword("x");
     }},
    {"an account asks for its password",
     [](TestApplication& test) {
       AddEntries(test);
       const auto other = test.app.desk().accounts().front();
       other->SetPassword("y");
       other->setAuthenticated(false);
       test.app.selection().Account_Select(other);
     }},
    {"the update window is open",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.updates().CheckForUpdates();
     }},
};

// Everything by which the outside can tell that something was done.
auto Traces(const TestApplication& test) {
  const auto& heard = test.speech.Heard();
  return std::make_tuple(
      test.front_end.changed.size(), test.alerts.Requests().size(),
      test.panels.OpenRequests().size() + test.panels.SaveRequests().size(),
      std::ranges::count_if(heard, [](const auto& text) { return text != "(stop)"; }),
      test.host.Requests().size(), test.files.Changes().size());
}

TEST(Commands, CanRunExactlyWhenRunningThemDoesSomething) {
  for (const State& state : kStates) {
    for (const Command* command : Commands()) {
      TestApplication test;
      state.reach(test);
      const bool can = command->can(test.app);
      const auto before = Traces(test);
      // Nobody can order from a menu that is off; and without a password, locking is a thing that
      // only the menus do not offer.
      const bool is_locking = command->name == "lock" || command->name == "Account_Lock";
      const bool is_ordered_from_sheets = command->menu == Menu::None && command->shortcut.empty();
      if (!can && !is_ordered_from_sheets && (!test.app.menus().AreOn() || is_locking)) continue;
      command->run(test.app);
      test.loop.AdvanceBy(std::chrono::seconds(3));
      EXPECT_EQ(Traces(test) != before, can) << command->name << ": " << state.name;
    }
  }
}

TEST(Commands, AreFoundByOperationAndByControl) {
  std::set<std::string_view> names;
  std::set<std::string_view> keys;
  for (const Command* command : Commands()) {
    EXPECT_TRUE(names.insert(command->name).second) << command->name;
    EXPECT_TRUE(command->shortcut.empty() || keys.insert(command->shortcut).second)
        << command->shortcut;
    EXPECT_EQ(command->title.empty(), command->menu == Menu::None) << command->name;
    EXPECT_EQ(CommandNamed(command->name), command);
  }
  EXPECT_EQ(CommandNamed("depositEntry_MenuItem"), CommandNamed("Entry_Deposit"));
  EXPECT_EQ(CommandNamed("debitSheet_OK_Button"), CommandNamed("DebitSheet_OK"));
  for (const char* none : {"", " ", "Entry", "debitEntry_Button debitEntry_MenuItem"}) {
    EXPECT_EQ(CommandNamed(none), nullptr) << none;
  }
  TestApplication test;
  EXPECT_FALSE(Order(test.app, "Entry_Debit") || Order(test.app, "Entry_Debits"));
  test.AddAccount("A");
  EXPECT_TRUE(Order(test.app, "debitEntry_Button"));
  EXPECT_EQ(test.app.entries().Edited().is_new, true);
}

}  // namespace
}  // namespace tallyfold

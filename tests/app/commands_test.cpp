#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <set>
#include <tuple>
#include <utility>

#include "app/accounts/account_editing.h"
#include "app/accounts/account_passwords.h"
#include "app/accounts/account_selection.h"
#include "app/accounts/accounts_drawer.h"
#include "app/commands/command.h"
#include "app/commands/command_tables.h"
#include "app/entries/entry_editing.h"
#include "app/entries/entry_orders.h"
#include "app/entries/entry_removal.h"
#include "app/entries/entry_reveal.h"
#include "app/entries/transfer_linking.h"
#include "app/exchange/qif_import_command.h"
#include "app/exchange/qif_import_controller.h"
#include "app/schedules/schedule_editing.h"
#include "app/schedules/schedule_reminder.h"
#include "app/schedules/schedules_tab.h"
#include "app/shell/about_sheet.h"
#include "app/shell/application_lock.h"
#include "app/shell/backups_list.h"
#include "app/shell/backups_sheet.h"
#include "app/shell/menus.h"
#include "app/shell/preferences_sheet.h"
#include "app/shell/print_sheet.h"
#include "app/shell/recovery.h"
#include "app/shell/tabs.h"
#include "app/shell/undo.h"
#include "app/shell/update_check.h"
#include "app/test_application.h"
#include "app/views/account_summary_sheet.h"
#include "app/views/account_summary_tab.h"
#include "app/views/balance_field.h"
#include "app/views/date_jump.h"
#include "app/views/entry_find.h"
#include "app/views/reconcile_tab.h"
#include "app/views/registers.h"
#include "filters/register_search.h"
#include "ledger/ledger_fixture.h"
#include "model/account.h"
#include "registers/table_data_source.h"
#include "storage/preferences.h"

namespace tallyfold {
namespace {

constexpr std::int32_t kResolved = 80;  // type of the filter

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

void BeginImport(TestApplication& test) {
  test.files.AddFile("/home/user/bank.qif", "!Type:Bank\nD3/1/04\nT-5.00\n^\n");
  test.panels.Answer("/home/user/bank.qif");
  test.app.importCommand().QIFImport();
}

void BeginStatement(TestApplication& test) {
  test.files.AddFile("/home/user/bank.csv",
                     "Date,Payee,Amount,Balance\n2004-03-01,Shop,-5.00,9.00\n"
                     "2004-03-02,Shop,-2.00,7.00\n2004-03-03,Shop,-3.00,4.00\n");
  test.panels.Answer("/home/user/bank.csv");
  test.app.importCommand().QIFImport();
}

void Import(TestApplication& test) {
  AddTwoAccounts(test);
  BeginImport(test);
}

// In the account that is not selected, a deposit of what a file holds as a debit.
void AddDepositElsewhere(TestApplication& test) {
  const auto selected = test.app.desk().SelectedAccount();
  test.app.selection().Account_Select(test.app.desk().accounts().front());
  test.AddDebit(5.0)->SetDate(20040303);
  test.app.entryOrders().Entry_ChangeKind();
  test.app.selection().Account_Select(selected);
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
    {"the backups show",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.backups().BackUpNow();
       test.app.backupsSheet().Open();
       test.app.backupsSheet().Compare();
     }},
    {"it tells about itself",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.about().Open();
     }},
    {"pages are about to be printed",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.printSheet().Open();
     }},
    {"the passwords in the preferences differ",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.preferencesSheet().Open();
       test.app.preferencesSheet().preferencesSheet_PasswordValidate("a", "b");
     }},
    {"the options of an import are open", Import},
    {"the options of a bank's file are open",
     [](TestApplication& test) {
       AddTwoAccounts(test);
       BeginStatement(test);
     }},
    {"a row of a bank's file is matched",
     [](TestApplication& test) {
       AddTwoAccounts(test);
       test.AddDebit(5.0)->SetDate(20040303);
       BeginStatement(test);
       test.app.sharedQIFImportController().ImportOptions_OK();
       test.app.sharedQIFImportController().ImportEntry_Match();
       test.app.sharedQIFImportController().Import_TakeBalance(true);
     }},
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
       test.app.applicationLock().authenticationSheet_ValidatePassword("x");
     }},
    {"an account asks for its password",
     [](TestApplication& test) {
       AddEntries(test);
       const auto other = test.app.desk().accounts().front();
       other->SetPassword("y");
       other->setAuthenticated(false);
       test.app.selection().Account_Select(other);
     }},
    {"a filter hides all entries",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.search().Filter_Select(kResolved);
     }},
    {"an entry of another account may be the other half",
     [](TestApplication& test) {
       AddTwoAccounts(test);
       AddDepositElsewhere(test);
       test.AddDebit(5.0);
     }},
    {"an import has brought half of a transfer",
     [](TestApplication& test) {
       AddTwoAccounts(test);
       AddDepositElsewhere(test);
       BeginImport(test);
       test.app.sharedQIFImportController().ImportOptions_OK();
       test.app.sharedQIFImportController().Import_OK();
     }},
    {"what was found and the field for a day show",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.entryFind().Open();
       test.app.dateJump().Open();
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

// What the outside sees of each area whose state can be compared at little cost.
std::vector<std::pair<Area, std::string>> Seen(TestApplication& test) {
  auto& app = test.app;
  const auto flag = [](bool value) { return std::string(value ? "1" : "0"); };
  const auto address = [](const auto& pointer) {
    return std::to_string(reinterpret_cast<std::uintptr_t>(pointer.get()));
  };
  const auto sheet = [&flag](const auto& state) {
    return flag(state.is_open) + (state.problem ? state.problem->field + state.problem->text : "");
  };
  auto& list = app.accountsDrawer();
  std::string accounts = std::to_string(list.Table().SelectedRow());
  for (std::size_t row = 0; row < list.numberOfRowsInTableView(); ++row) {
    accounts += list.tableView("accounts", row).text + list.tableView("balance", row).text + ' ';
  }
  std::string rows;
  for (const auto* shown : {&app.registers().Entry(), &app.registers().Reconcile()}) {
    for (const auto& entry : shown->GetEntries()) rows += Line(*entry) + '\n';
  }
  std::string schedules;
  for (std::size_t row = 0; row < app.schedules().Rows().numberOfRowsInTableView(); ++row) {
    schedules += std::to_string(row);
  }
  const auto& tabs = app.tabs().State();
  const auto figures = app.reconcileTab().State().figures;
  const auto& summaries = app.summaries().State();
  std::string summary = std::to_string(summaries.selected_row);
  for (const auto& each : summaries.summaries) summary += each->name();
  const auto& search = app.search().State();
  const auto account = app.desk().SelectedAccount();
  std::string types;
  for (const MenuItem& item : app.menus().EntryTypeMenu()) {
    types += item.title + flag(item.is_enabled) + flag(item.is_checked);
  }
  std::string columns;
  for (const auto* shown : {&app.registers().Entry(), &app.registers().Reconcile()}) {
    for (const TableColumn& column : shown->VisibleTableColumns()) columns += TitleOf(column) + ' ';
  }
  std::string steps;
  for (const auto& lines : {app.undo().UndoLines(), app.undo().RedoLines()}) {
    for (const UndoLine& line : lines) steps += line.name + flag(line.can_be_reached);
    steps += '|';
  }
  const auto& orders = app.entryOrders().State();
  const auto& linking = app.transferLinking().State();
  const auto& backup = app.backups().State();
  const auto& jump = app.dateJump().State();
  const auto& find = app.entryFind().State();
  return {
      {Area::Accounts, accounts},
      {Area::SelectedAccount, address(account)},
      {Area::WindowTitle, app.selection().WindowTitle()},
      {Area::AccountMenu, std::to_string(app.menus().AccountMenu().size()) + address(account)},
      {Area::Registers, rows},
      {Area::RegisterColumns, columns},
      {Area::SelectedEntry, address(app.desk().SelectedEntry())},
      {Area::HiddenEntry, app.entryReveal().State().text},
      {Area::Schedules, schedules},
      {Area::Balance, app.balanceField().State().text},
      {Area::ReconcileBalances,
       std::to_string(figures.resolved_balance) + " " + std::to_string(figures.unresolved_sum)},
      {Area::EntryTypeMenu, types},
      {Area::EntryOrders, orders.problem + orders.note},
      {Area::TransferLinking,
       linking.problem + linking.note + linking.offer_text + std::to_string(linking.offers.size())},
      {Area::EntryFind, flag(find.is_open) + find.text},
      {Area::DateJump, flag(jump.is_open) + std::to_string(jump.day)},
      {Area::BackUp, backup.kept + backup.problem},
      {Area::History, steps},
      {Area::Recovery, app.recovery().Notice()},
      {Area::Summary, summary},
      {Area::Tabs, std::to_string(static_cast<int>(tabs.selected)) +
                       flag(tabs.entry_item_is_checked) + flag(tabs.reconcile_item_is_checked)},
      {Area::AccountsDrawer, flag(app.accountsDrawer().State().is_open)},
      {Area::Search, search.entry.text + flag(search.entry.is_enabled) + search.reconcile.text +
                         std::to_string(search.menu_type)},
      {Area::Updates, flag(app.updates().State().window_is_open)},
      {Area::Sheet, std::to_string(static_cast<int>(app.sheets().Current()))},
      {Area::BackupsSheet, sheet(app.backupsSheet().State())},
      {Area::AboutSheet, flag(app.about().State().is_open)},
      {Area::PrintSheet, flag(app.printSheet().State().is_open)},
      {Area::DebitSheet, sheet(app.entries().Debit().State())},
      {Area::DepositSheet, sheet(app.entries().Deposit().State())},
      {Area::TransferSheet, sheet(app.entries().Transfer().State())},
      {Area::EntryRemoveSheet, sheet(app.entryRemoval().Confirm())},
      {Area::TransferEntryRemoveSheet, sheet(app.entryRemoval().Transfer())},
      {Area::ScheduleSheet, sheet(app.scheduleSheet().State())},
      {Area::ScheduleRemoveSheet, sheet(app.schedules().Confirm())},
      {Area::ScheduleReminderSheet, sheet(app.reminder().State())},
      {Area::AccountEditSheet, sheet(app.accountSheet().State())},
      {Area::AccountSummarySheet, sheet(app.summarySheet().State())},
      {Area::AuthenticationSheet, sheet(app.applicationLock().State())},
      {Area::AccountAuthenticationSheet, sheet(app.accountPasswords().State())},
      {Area::PreferencesSheet, sheet(app.preferencesSheet().State())},
      {Area::ImportOptionsSheet, sheet(app.sharedQIFImportController().Options())},
      {Area::ImportReview, flag(app.sharedQIFImportController().IsReviewing())},
  };
}

TEST(Commands, AnnounceWhatTheyChangeAndNothingTwice) {
  for (const State& state : kStates) {
    for (const Command* command : Commands()) {
      TestApplication test;
      state.reach(test);
      if (!command->can(test.app)) continue;
      const auto before = Seen(test);
      const std::size_t alerts = test.alerts.Requests().size();
      test.front_end.changed.clear();
      command->run(test.app);
      const auto told = test.front_end.changed;
      const auto after = Seen(test);
      for (std::size_t i = 0; i < before.size(); ++i) {
        const auto times = std::ranges::count(told, before[i].first);
        const std::string where = std::string(command->name) + ": " + state.name + ", area " +
                                  std::to_string(static_cast<int>(before[i].first));
        EXPECT_TRUE(before[i].second == after[i].second || times > 0) << where;
        // What is told before a question may be told again after it.
        EXPECT_LE(times, test.alerts.Requests().size() > alerts ? 2 : 1) << where;
      }
    }
  }
}

TEST(Commands, AreTakenBackWholeByUndo) {
  for (const State& state : kStates) {
    for (const Command* command : Commands()) {
      TestApplication test;
      state.reach(test);
      if (!command->can(test.app) || command->menu == Menu::Edit) continue;
      const std::string where = std::string(command->name) + ": " + state.name;
      auto& undo = test.app.undo();
      const bool was_open = test.app.desk().IsUnlocked();
      const std::size_t steps = undo.UndoLines().size();
      const std::string before = BytesOf(test.app.desk().accounts());
      test.alerts.Answer(command->name == "Account_Remove"    ? "Remove"
                         : command->name == "Backups_Restore" ? "Restore"
                                                              : "OK");
      command->run(test.app);
      const std::string after = BytesOf(test.app.desk().accounts());
      if (!was_open || !test.app.desk().IsUnlocked() || undo.UndoLines().size() <= steps) continue;
      test.app.sheets().CancelOpen();
      EXPECT_TRUE(undo.UndoStep()) << where;
      EXPECT_EQ(BytesOf(test.app.desk().accounts()), before) << where;
      EXPECT_TRUE(undo.RedoStep()) << where;
      EXPECT_EQ(BytesOf(test.app.desk().accounts()), after) << where;
    }
  }
}

// Whether a text is made of sentences that were looked up, each once; what they were given, as the
// name of an account, stands within them.
bool IsLookedUp(std::string_view text) {
  while (!text.empty()) {
    if (text.front() == ' ' || text.front() == '\n') {
      text.remove_prefix(1);
      continue;
    }
    std::size_t depth = 0;
    std::size_t end = 0;
    std::size_t inner = 0;  // where the second bracket is closed
    do {
      if (text[end] == '[') ++depth;
      if (text[end] == ']' && --depth == 1 && inner == 0) inner = end;
    } while (++end < text.size() && depth > 0);
    const bool is_twice = text.starts_with("[[") && inner + 2 == end;
    if (text.front() != '[' || depth != 0 || is_twice) return false;
    text.remove_prefix(end);
  }
  return true;
}

// What the program says in a state, without what holds names that somebody gave.
std::vector<std::string> TextsShown(TestApplication& test) {
  auto& app = test.app;
  std::vector<std::string> texts;
  const auto items = [&texts](const std::vector<PopUpItem>& list) {
    for (const PopUpItem& item : list) {
      if (!item.is_separator) texts.push_back(item.title);
    }
  };
  items(app.balanceField().State().mode_items);
  items(app.reminder().State().unit_items);
  items(app.reminder().State().balance_items);
  for (const auto* rows : {&app.registers().Entry(), &app.registers().Reconcile()}) {
    for (const TableColumn& column : rows->VisibleTableColumns()) texts.push_back(TitleOf(column));
  }
  items(app.printSheet().State().papers);
  items(app.printSheet().State().orientations);
  if (const auto& print = app.printSheet().State(); print.is_open) {
    texts.insert(texts.end(), {print.heading, print.facts});
  }
  texts.push_back(app.undo().UndoTitle());
  texts.push_back(app.undo().RedoTitle());
  texts.push_back(app.entryReveal().State().text);
  texts.push_back(app.search().State().entry.label);
  for (const AlertRequest& alert : test.alerts.Requests()) {
    texts.push_back(alert.title);
    texts.push_back(alert.message);
    texts.insert(texts.end(), alert.buttons.begin(), alert.buttons.end());
  }
  return texts;
}

TEST(Commands, ShowNoTextThatWasNotLookedUp) {
  const std::pair<const char*, bool> texts[] = {{"", true},
                                                {"[A]", true},
                                                {"[A]  [B]", true},
                                                {"[A {[1]} [2] B]", true},
                                                {"[[1] and [2]]", true},
                                                {"A", false},
                                                {"[A] 1", false},
                                                {"1 [A]", false},
                                                {"[[A]]", false},
                                                {"[A", false}};
  for (const auto& [text, is_looked_up] : texts) EXPECT_EQ(IsLookedUp(text), is_looked_up) << text;

  for (const State& state : kStates) {
    for (const Command* command : Commands()) {
      // Those that ask or tell say the most.
      if (command->menu == Menu::None && command->shortcut.empty()) continue;
      TestApplication test;
      test.ambient.localizer.brackets = true;
      state.reach(test);
      if (!command->can(test.app)) continue;
      command->run(test.app);
      for (const std::string& text : TextsShown(test)) {
        EXPECT_TRUE(IsLookedUp(text)) << text << " after " << command->name << ": " << state.name;
      }
    }
  }
}

TEST(Commands, HaveKeysOfTheirOwnWhereTheyCanRun) {
  for (const State& state : kStates) {
    TestApplication test;
    state.reach(test);
    std::set<std::string_view> keys;
    for (const Command* command : Commands()) {
      if (command->shortcut.empty() || !command->can(test.app)) continue;
      EXPECT_TRUE(keys.insert(command->shortcut).second) << command->name << ": " << state.name;
    }
  }
}

TEST(Commands, AreFoundByOperationAndByControl) {
  std::set<std::string_view> names;
  for (const Command* command : Commands()) {
    EXPECT_TRUE(names.insert(command->name).second) << command->name;
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
  EXPECT_TRUE(test.app.entries().editEntryIsNew());
}

}  // namespace
}  // namespace tallyfold

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

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
#include "app/exchange/qif_import_controller.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
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
#include "app/states.h"
#include "app/test_application.h"
#include "app/views/account_summary_sheet.h"
#include "app/views/account_summary_tab.h"
#include "app/views/balance_field.h"
#include "app/views/date_jump.h"
#include "app/views/entry_find.h"
#include "app/views/reconcile_tab.h"
#include "app/views/registers.h"
#include "filters/register_search.h"
#include "ledger/change_set.h"
#include "ledger/ledger.h"
#include "ledger/ledger_fixture.h"
#include "model/account.h"
#include "plist/writer.h"
#include "registers/table_data_source.h"

namespace tallyfold {
namespace {

// Texts and numbers, one behind the other.
template <typename... Values>
std::string Joined(const Values&... values) {
  std::ostringstream text;
  ((text << values << ' '), ...);
  return text.str();
}

// What the outside sees of each area, as far as it can be compared at little cost.
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
  for (const auto* shown :
       {&app.registers().entryDataSource(), &app.registers().reconcileDataSource()}) {
    for (const auto& entry : shown->GetEntries()) rows += Line(*entry) + '\n';
  }
  std::string schedules;
  for (std::size_t row = 0; row < app.schedules().Rows().numberOfRowsInTableView(); ++row) {
    schedules += std::to_string(row);
  }
  const auto& tabs = app.tabs().State();
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
  for (const auto* shown :
       {&app.registers().entryDataSource(), &app.registers().reconcileDataSource()}) {
    for (const TableColumn& column : shown->VisibleTableColumns()) columns += TitleOf(column) + ' ';
  }
  std::string steps;
  for (const auto& lines : {app.undo().UndoLines(), app.undo().RedoLines()}) {
    for (const UndoLine& line : lines) steps += line.name + flag(line.can_be_reached);
    steps += '|';
  }
  const auto entry_sheet = [](const EntrySheetState& state) {
    std::string text = Joined(state.split_total, state.split_rest, state.amount_is_enabled,
                              state.to_from_is_enabled, state.check_number_is_enabled,
                              state.suggestion.has_value(), state.typed.amount.value_or(-1),
                              state.typed.check_number, state.typed.description);
    for (const SplitRow& row : state.typed.split) text += row.description;
    return text;
  };
  const auto& reminder = app.reminder().State();
  std::string due;
  for (const ReminderRow& row : reminder.rows) due += flag(row.typed.is_marked);
  const auto& preferences = app.preferencesSheet().State();
  const auto& backups = app.backupsSheet().State();
  auto& import = app.sharedQIFImportController();
  const auto& qif = import.Options();
  const auto& statement = import.StatementOptions();
  const auto& review = import.Review();
  std::string reviewed;
  for (const auto& entry : import.entries()) {
    reviewed += Line(*entry) + flag(entry->GetImport()) + flag(entry->GetMatched() != nullptr);
  }
  const auto& reconcile = app.reconcileTab().State();
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
       Joined(reconcile.figures.resolved_balance, reconcile.figures.unresolved_sum,
              reconcile.difference, reconcile.explanation_text)},
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
      {Area::BackupsSheet,
       sheet(backups) + Joined(backups.rows.size(), backups.selected, backups.selected_account,
                               backups.lines.size(), backups.nothing, backups.done)},
      {Area::AboutSheet, flag(app.about().State().is_open)},
      {Area::PrintSheet, flag(app.printSheet().State().is_open)},
      {Area::DebitSheet,
       sheet(app.entries().Debit().State()) + entry_sheet(app.entries().Debit().State())},
      {Area::DepositSheet,
       sheet(app.entries().Deposit().State()) + entry_sheet(app.entries().Deposit().State())},
      {Area::TransferSheet, sheet(app.entries().Transfer().State())},
      {Area::EntryRemoveSheet, sheet(app.entryRemoval().Confirm())},
      {Area::TransferEntryRemoveSheet, sheet(app.entryRemoval().Transfer())},
      {Area::ScheduleSheet, sheet(app.scheduleSheet().State())},
      {Area::ScheduleRemoveSheet, sheet(app.schedules().Confirm())},
      {Area::ScheduleReminderSheet, sheet(reminder) + due +
                                        Joined(reminder.due, reminder.ahead, reminder.marked,
                                               reminder.sentence, reminder.balance_text)},
      {Area::AccountEditSheet,
       sheet(app.accountSheet().State()) + flag(app.accountSheet().State().ok_is_enabled)},
      {Area::AccountSummarySheet, sheet(app.summarySheet().State())},
      {Area::AuthenticationSheet, sheet(app.applicationLock().State())},
      {Area::AccountAuthenticationSheet, sheet(app.accountPasswords().State())},
      {Area::PreferencesSheet,
       sheet(preferences) + Joined(preferences.tab, preferences.ok_is_enabled,
                                   preferences.passwords_differ, preferences.spoken_example)},
      {Area::ImportOptionsSheet,
       sheet(qif) + (qif.is_open ? Joined(qif.swap_type, qif.swap_to_from, qif.swap_description,
                                          qif.encoding, statement.columns.size(),
                                          statement.settings.size(), statement.problem,
                                          statement.questions.size(), statement.entry_count)
                                 : "")},
      {Area::ImportReview, flag(review.is_open) + reviewed + review.total_text +
                               Joined(review.marked_count, review.matched_count, review.can_import,
                                      review.can_change, review.can_match, review.can_import_all,
                                      review.account_is_gone, review.takes_balance)},
  };
}

std::vector<std::string> BytesOfEach(const AccountList& accounts) {
  std::vector<std::string> bytes;
  for (const auto& account : accounts) bytes.push_back(plist::ToXml(account->asDictionary()));
  return bytes;
}

// Runs an order in a state, and expects that each area that it changes is told of, none more often
// than that, and that nothing is shown as it was before.
template <typename Run>
void ExpectThatItTells(TestApplication& test, const std::string& where, int most, Run run) {
  const auto before = Seen(test);
  const std::size_t alerts = test.alerts.Requests().size();
  test.front_end.changed.clear();
  const AccountList accounts = test.app.desk().accounts();
  const std::vector<std::string> bytes = BytesOfEach(accounts);
  Mirror mirror;
  for (const auto& account : accounts) mirror.Follow(*account);
  test.app.ledger().AddListener(mirror);
  run();
  test.app.ledger().RemoveListener(mirror);
  // A backup takes the place of all accounts, of which the ledger has nothing to tell.
  const auto& left = test.app.desk().accounts();
  if (left.empty() || accounts.empty() ||
      std::ranges::find(accounts, left.back()) != accounts.end()) {
    EXPECT_TRUE(mirror.Equals(left)) << where;
  }
  const std::vector<std::string> bytes_after = BytesOfEach(accounts);
  for (std::size_t i = 0; i < accounts.size(); ++i) {
    const bool is_told = std::ranges::any_of(
        mirror.sets, [&](const ChangeSet& set) { return set.Of(accounts[i].get()) != nullptr; });
    if (!is_told) {
      EXPECT_EQ(bytes[i], bytes_after[i]) << where;
    }
  }
  const auto told = test.front_end.changed;
  const auto after = Seen(test);
  // The same worked out anew, which ends a search and filters the rows again.
  test.app.refresh().StepTaken();
  const auto anew = Seen(test);
  for (std::size_t i = 0; i < before.size(); ++i) {
    const auto times = std::ranges::count(told, before[i].first);
    const std::string area = ", area " + std::to_string(static_cast<int>(before[i].first));
    EXPECT_TRUE(before[i].second == after[i].second || times > 0) << where << area << "\n"
                                                                  << before[i].second << "\n"
                                                                  << after[i].second;
    const bool is_filtered = before[i].first == Area::Registers ||
                             before[i].first == Area::SelectedEntry ||
                             before[i].first == Area::Search;
    if (!is_filtered) {
      EXPECT_EQ(after[i].second, anew[i].second) << where << area;
    }
    // What is told before a question may be told again after it.
    EXPECT_LE(times, test.alerts.Requests().size() > alerts ? 2 : most) << where << area;
  }
}

TEST(Announcements, TellWhatCommandsChangeAndNothingTwice) {
  for (const State& state : States()) {
    for (const Command* command : Commands()) {
      TestApplication test;
      state.reach(test);
      if (!command->can(test.app)) continue;
      AgreeTo(test, command->name);
      ExpectThatItTells(test, std::string(command->name) + ": " + state.name, 1,
                        [&] { command->run(test.app); });
    }
  }
}

std::string AllEntriesOf(const AccountList& accounts) {
  std::string entries;
  for (const auto& account : accounts) {
    for (const std::string& line : Lines(*account)) entries += line + '\n';
    for (const auto& schedule : account->GetSchedules()) entries += Line(*schedule) + '\n';
  }
  return entries;
}

TEST(Announcements, TellWhatTypedOrdersChangeAndASheetKeepsThemFromEntries) {
  for (const State& state : States()) {
    for (const TypedOrder& order : TypedOrders()) {
      TestApplication test;
      state.reach(test);
      const std::string where = std::string(order.name) + ": " + state.name;
      const bool has_sheet = test.app.sheets().Current() != Sheet::None;
      const std::string entries = AllEntriesOf(test.app.desk().accounts());
      // Tables of their own tell of their rows and of what is selected one after the other.
      ExpectThatItTells(test, where, 3, [&] { order.run(test.app); });
      if (has_sheet) {
        EXPECT_EQ(AllEntriesOf(test.app.desk().accounts()), entries) << where;
      }
    }
  }
}

}  // namespace
}  // namespace tallyfold

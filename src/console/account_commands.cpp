#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/accounts/account_editing.h"
#include "app/accounts/account_removal.h"
#include "app/accounts/account_selection.h"
#include "app/accounts/accounts_drawer.h"
#include "app/accounts/accounts_total.h"
#include "app/controller.h"
#include "app/desk.h"
#include "app/face/sheet_slot.h"
#include "console/account_sheet.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/lookup.h"
#include "console/password_sheets.h"
#include "console/printer.h"
#include "console/questions.h"
#include "console/shown_columns.h"
#include "console/table.h"
#include "console/values.h"
#include "model/account.h"

namespace tallyfold::console {
namespace {

const ShownColumns& ShownAccounts() {
  static const ShownColumns kShown(
      {{{"name"}, "accounts"}, {{"balance", Column::Align::Right}, "balance"}}, AccountColumns());
  return kShown;
}

Table AccountTable() {
  std::vector<Column> columns = {{"number", Column::Align::Right}};
  ShownAccounts().AddTo(columns);
  columns.push_back({"state"});
  return Table(std::move(columns));
}

void AddRow(Table& table, const Console& console, const LDGRAccount& account) {
  const bool is_selected = console.controller.desk().SelectedAccount().get() == &account;
  std::vector<std::string> cells = {WriteNumber(account.GetNumber())};
  ShownAccounts().AddTo(cells, [&](std::string_view column) {
    return CellOfAccount(account, column, console.controller.desk().preferences());
  });
  // Of a locked account the state says so.
  if (account.IsLocked()) cells.back().clear();
  cells.push_back(account.IsLocked() ? "locked" : is_selected ? "selected" : "");
  table.Add(std::move(cells));
}

void ShowAccount(Console& console, const LDGRAccount& account) {
  Table table = AccountTable();
  AddRow(table, console, account);
  console.printer.Show(table);
}

void ListAccounts(Console& console, const Arguments& /*arguments*/) {
  Table table = AccountTable();
  for (const auto& account : console.controller.desk().accounts()) AddRow(table, console, *account);
  console.printer.Show(table);
}

void AddAccount(Console& console, const Arguments& arguments) {
  // A first launch has opened the sheet already.
  LDGRController& controller = console.controller;
  if (controller.sheets().Current() != Sheet::AccountEdit &&
      !controller.accountSheet().Account_Add()) {
    throw CommandError("no account can be added now");
  }
  AccountEditSheetState::Typed typed = controller.accountSheet().State().typed;
  if (arguments.WordCount() > 0) typed.name = arguments.WordAt(0);
  TypeAccountFields(arguments, typed);
  FinishAccountSheet(console, std::move(typed));
  ShowAccount(console, *controller.desk().accounts().back());
}

void RenameAccount(Console& console, const Arguments& arguments) {
  const auto account = SelectedAccount(console);
  OpenAccountSheet(console);
  AccountEditSheetState::Typed typed = console.controller.accountSheet().State().typed;
  typed.name = arguments.WordAt(0);
  FinishAccountSheet(console, std::move(typed));
  ShowAccount(console, *account);
}

void RemoveAccount(Console& console, const Arguments& /*arguments*/) {
  const auto account = SelectedAccount(console);
  if (console.controller.accountRemoval().Account_Remove()) {
    return console.printer.Confirm("Removed " + account->GetName() + ".");
  }
  if (console.questions.AsksPerson()) return console.printer.Confirm("Nothing was removed.");
  throw CommandError("nothing was removed; answer Remove before the command removes the account");
}

void SelectAccount(Console& console, const Arguments& arguments) {
  const auto account = AccountNamed(console, arguments.WordAt(0));
  console.controller.selection().Account_Select(account);
  RequireSelected(console, account);
  console.printer.Confirm("Selected " + account->GetName() + ".");
}

// The accounts that are not locked, and what they come to.
void ShowAllBalances(const Console& console) {
  const auto& accounts = console.controller.desk().accounts();
  constexpr double (LDGRAccount::*kBalances[])()
      const = {&LDGRAccount::GetBalance, &LDGRAccount::GetTodaysBalance,
               &LDGRAccount::GetResolvedBalance, &LDGRAccount::GetUnresolvedBalance};
  Table table({{"account"},
               {"balance", Column::Align::Right},
               {"today", Column::Align::Right},
               {"resolved", Column::Align::Right},
               {"unresolved", Column::Align::Right}});
  for (const auto& account : accounts) {
    if (account->IsLocked()) continue;
    std::vector<std::string> cells = {account->GetName()};
    for (const auto balance : kBalances) cells.push_back(WriteAmount(((*account).*balance)()));
    table.Add(std::move(cells));
  }
  const auto& preferences = console.controller.desk().preferences();
  std::vector<std::string> cells = {TotalOfUnlocked(accounts, preferences).title};
  for (const auto balance : kBalances) {
    cells.push_back(WriteAmount(SumOfUnlocked(accounts, balance)));
  }
  table.Add(std::move(cells));
  console.printer.Show(table);
}

void ShowBalances(Console& console, const Arguments& arguments) {
  if (arguments.WordCount() > 0) {
    if (arguments.WordAt(0) == "all") return ShowAllBalances(console);
    throw CommandError("expected all or nothing, not " + Quoted(arguments.WordAt(0)));
  }
  const auto account = SelectedAccount(console);
  Table table({{"balance"}, {"amount", Column::Align::Right}});
  const auto add = [&](std::string_view name, double amount) {
    table.Add({std::string(name), WriteAmount(amount)});
  };
  add("starting", account->GetStartingBalance());
  add("debits", account->GetDebitsTotal());
  add("deposits", account->GetDepositsTotal());
  add("transfers", account->GetTransfersTotal());
  add("balance", account->GetBalance());
  add("today", account->GetTodaysBalance());
  add("resolved", account->GetResolvedBalance());
  add("unresolved", account->GetUnresolvedBalance());
  console.printer.Show(table);
}

constexpr Option kAccountAddOptions[] = {kAccountBalance, kAccountCheck};

constexpr Command kAccountCommands[] = {
    {.name = "accounts",
     .help = "lists the accounts",
     .example = "accounts",
     .run = ListAccounts,
     .works_in_review = true},
    {.name = "account add",
     .words = "[NAME]",
     .most_words = 1,
     .options = kAccountAddOptions,
     .help = "adds an account and selects it",
     .example = "account add \"Joint checking\" balance=250.00 check=1001",
     .run = AddAccount,
     .needs = Needs::AccountSheet},
    {.name = "account rename",
     .words = "NAME",
     .least_words = 1,
     .most_words = 1,
     .help = "renames the selected account, also in the transfers of the others",
     .example = "account rename \"Joint checking\"",
     .run = RenameAccount},
    {.name = "account remove",
     .help = "removes the selected account with everything in it, after a question",
     .example = "account remove",
     .answers = "Cancel, Remove",
     .run = RemoveAccount},
    {.name = "select",
     .words = "NUMBER|NAME",
     .least_words = 1,
     .most_words = 1,
     .help = "selects the account that the other commands work on",
     .example = "select Savings",
     .run = SelectAccount},
    {.name = "balances",
     .words = "[all]",
     .most_words = 1,
     .help = "shows the balances and totals of the selected account, or the balances of all that "
             "are not locked",
     .example = "balances all",
     .run = ShowBalances},
};

}  // namespace

std::span<const Command> AccountCommands() {
  return kAccountCommands;
}

}  // namespace tallyfold::console

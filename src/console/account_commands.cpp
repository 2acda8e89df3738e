#include "app/controller.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/lookup.h"
#include "console/password_sheets.h"
#include "console/printer.h"
#include "console/table.h"
#include "console/values.h"
#include "model/account.h"

namespace tallyfold::console {
namespace {

constexpr std::int32_t kHighestCheckNumber = 2147483646;

Table AccountTable() {
  return Table(
      {{"number", Column::Align::Right}, {"name"}, {"balance", Column::Align::Right}, {"state"}});
}

void AddRow(Table& table, const Console& console, const LDGRAccount& account) {
  const bool is_selected = console.controller.SelectedAccount().get() == &account;
  const bool is_locked = account.IsLocked();
  table.Add({WriteNumber(account.GetNumber()), account.GetName(),
             is_locked ? "" : WriteAmount(account.GetBalance()),
             is_locked     ? "locked"
             : is_selected ? "selected"
                           : ""});
}

void ShowAccount(Console& console, const LDGRAccount& account) {
  Table table = AccountTable();
  AddRow(table, console, account);
  console.printer.Show(table);
}

void ListAccounts(Console& console, const Arguments& /*arguments*/) {
  Table table = AccountTable();
  for (const auto& account : console.controller.accounts()) AddRow(table, console, *account);
  console.printer.Show(table);
}

// Presses OK in the account sheet.
void FinishAccountSheet(Console& console, AccountEditSheetState::Typed typed) {
  const bool has_name = !typed.name.empty();
  console.controller.AccountEditSheet_Read(std::move(typed));
  if (console.controller.AccountEditSheet_OK()) return;
  throw CommandError(has_name ? "the account sheet refuses these values"
                              : "name: expected a text that is not empty");
}

void AddAccount(Console& console, const Arguments& arguments) {
  const auto name = arguments.Text("name");
  const auto balance = arguments.Amount("balance");
  const auto check = arguments.Number("check", 0, kHighestCheckNumber);

  // A first launch has opened the sheet already.
  LDGRController& controller = console.controller;
  if (controller.OpenSheet() != Sheet::AccountEdit && !controller.Account_Add()) {
    throw CommandError("no account can be added now");
  }
  AccountEditSheetState::Typed typed = controller.AccountEditSheet().typed;
  if (name) typed.name = *name;
  if (balance) typed.starting_balance = *balance;
  if (check) typed.starting_check_number = *check;
  FinishAccountSheet(console, std::move(typed));
  ShowAccount(console, *controller.accounts().back());
}

void RenameAccount(Console& console, const Arguments& arguments) {
  const auto account = SelectedAccount(console);
  if (!console.controller.Account_Edit()) throw CommandError("the account cannot be changed now");
  AccountEditSheetState::Typed typed = console.controller.AccountEditSheet().typed;
  typed.name = arguments.WordAt(0);
  FinishAccountSheet(console, std::move(typed));
  ShowAccount(console, *account);
}

void SelectAccount(Console& console, const Arguments& arguments) {
  const auto account = AccountNamed(console, arguments.WordAt(0));
  console.controller.Account_Select(account);
  ServePasswordSheet(console);
  if (console.controller.SelectedAccount() != account) {
    throw CommandError(account->GetName() + " is locked; unlock PASSWORD account=" +
                       WriteNumber(account->GetNumber()) + " opens it");
  }
  console.printer.Confirm("Selected " + account->GetName() + ".");
}

void ShowBalances(Console& console, const Arguments& /*arguments*/) {
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

constexpr Option kAddOptions[] = {
    {.name = "name", .value = "TEXT", .help = "the account's name"},
    {.name = "balance", .value = "AMOUNT", .help = "what is in the account at the start"},
    {.name = "check", .value = "NUMBER", .help = "the number of the first check"},
};

constexpr Command kCommands[] = {
    {.name = "accounts", .help = "lists the accounts", .example = "accounts", .run = ListAccounts},
    {.name = "account add",
     .options = kAddOptions,
     .help = "adds an account and selects it",
     .example = "account add name=\"Joint checking\" balance=250.00 check=1001",
     .run = AddAccount,
     .needs = Needs::AccountSheet},
    {.name = "account rename",
     .words = "NAME",
     .least_words = 1,
     .most_words = 1,
     .help = "renames the selected account, also in the transfers of the others",
     .example = "account rename \"Joint checking\"",
     .run = RenameAccount},
    {.name = "select",
     .words = "NUMBER|NAME",
     .least_words = 1,
     .most_words = 1,
     .help = "selects the account that the other commands work on",
     .example = "select Savings",
     .run = SelectAccount},
    {.name = "balances",
     .help = "shows the balances and totals of the selected account",
     .example = "balances",
     .run = ShowBalances},
};

}  // namespace

std::span<const Command> AccountCommands() {
  return kCommands;
}

}  // namespace tallyfold::console

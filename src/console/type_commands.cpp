#include "app/controller.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/lookup.h"
#include "console/printer.h"
#include "console/table.h"
#include "console/values.h"
#include "model/account.h"
#include "model/entry_type.h"

namespace tallyfold::console {
namespace {

std::string KindOf(const LDGRAccountEntryType& type) {
  if (type.GetIsTransfer()) return "transfer";
  return type.GetIsDeposit() ? "deposit" : "debit";
}

void ListTypes(Console& console, const Arguments& /*arguments*/) {
  const auto account = SelectedAccount(console);
  Table table(
      {{"number", Column::Align::Right}, {"name"}, {"kind"}, {"check"}, {"active"}, {"default"}});
  const auto add = [&](const EntryTypeList& types, bool are_active) {
    for (const auto& type : types) {
      const bool is_default =
          type == account->GetDefaultDebitType() || type == account->GetDefaultDepositType();
      table.Add({WriteNumber(type->GetNumber()), type->GetName(), KindOf(*type),
                 type->GetIsCheck() ? "yes" : "", are_active ? "yes" : "",
                 is_default ? "yes" : ""});
    }
  };
  add(account->GetTypes(), true);
  add(account->GetInactiveTypes(), false);
  console.printer.Show(table);
}

bool ReadIsDeposit(const Arguments& arguments) {
  const auto kind = arguments.Text("kind");
  if (!kind || *kind == "debit") return false;
  if (*kind == "deposit") return true;
  throw CommandError("kind: expected debit or deposit, not " + Quoted(*kind));
}

void AddType(Console& console, const Arguments& arguments) {
  (void)SelectedAccount(console);
  AccountEditSheetState::TypeRow row;
  row.name = arguments.WordAt(0);
  row.is_deposit = ReadIsDeposit(arguments);
  row.is_check = arguments.YesNo("check").value_or(false);
  const bool is_default = arguments.YesNo("default").value_or(false);
  if (row.name.empty()) throw CommandError("expected a name that is not empty");

  LDGRController& controller = console.controller;
  if (!controller.Account_Edit()) throw CommandError("the account cannot be changed now");
  AccountEditSheetState::Typed typed = controller.AccountEditSheet().typed;
  for (const auto& other : typed.types) {
    if (other.name == row.name && other.is_deposit == row.is_deposit) {
      throw CommandError("there is already a type " + Quoted(row.name) + " of that kind");
    }
  }
  if (is_default) {
    auto& default_type = row.is_deposit ? typed.default_deposit_type : typed.default_debit_type;
    default_type = static_cast<std::int32_t>(typed.types.size());
  }
  typed.types.push_back(row);
  controller.AccountEditSheet_Read(std::move(typed));
  if (!controller.AccountEditSheet_OK()) {
    throw CommandError("the account sheet refuses the type");
  }
  ListTypes(console, arguments);
}

constexpr Option kAddOptions[] = {
    {.name = "kind", .value = "debit|deposit", .help = "which entries may use it (debit)"},
    {.name = "check", .value = "yes|no", .help = "whether its entries are checks (no)"},
    {.name = "default", .value = "yes|no", .help = "whether new entries begin with it (no)"},
};

constexpr Command kCommands[] = {
    {.name = "types",
     .help = "lists the entry types of the selected account",
     .example = "types",
     .run = ListTypes},
    {.name = "type add",
     .words = "NAME",
     .least_words = 1,
     .most_words = 1,
     .options = kAddOptions,
     .help = "adds an entry type to the selected account",
     .example = "type add Salary kind=deposit",
     .run = AddType},
};

}  // namespace

std::span<const Command> TypeCommands() {
  return kCommands;
}

}  // namespace tallyfold::console

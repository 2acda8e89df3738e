#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <utility>

#include "app/accounts/account_editing.h"
#include "app/accounts/account_type_rows.h"
#include "app/controller.h"
#include "console/account_sheet.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/lookup.h"
#include "console/printer.h"
#include "console/table.h"
#include "console/values.h"
#include "model/account.h"
#include "model/account_entry.h"
#include "model/entry_type.h"

namespace tallyfold::console {
namespace {

std::string KindOf(const LDGRAccountEntryType& type) {
  if (type.GetIsTransfer()) return "transfer";
  return type.GetIsDeposit() ? "deposit" : "debit";
}

void ListTypes(Console& console, const Arguments& /*arguments*/) {
  const auto account = SelectedAccount(console);
  Table table({{"number", Column::Align::Right},
               {"name"},
               {"kind"},
               {"check"},
               {"active"},
               {"default"},
               {"entries", Column::Align::Right}});
  std::unordered_map<std::int32_t, std::int64_t> entries;
  for (const auto& entry : account->GetEntries()) ++entries[entry->GetType()];
  const auto add = [&](const EntryTypeList& types, bool are_active) {
    for (const auto& type : types) {
      const bool is_default =
          type == account->GetDefaultDebitType() || type == account->GetDefaultDepositType();
      table.Add({WriteNumber(type->GetNumber()), type->GetName(), KindOf(*type),
                 type->GetIsCheck() ? "yes" : "", are_active ? "yes" : "", is_default ? "yes" : "",
                 WriteNumber(entries[type->GetNumber()])});
    }
  };
  add(account->GetTypes(), true);
  add(account->GetInactiveTypes(), false);
  console.printer.Show(table);
}

// Throws CommandError where another type in use has the name of the row's and its kind.
void CheckName(const AccountEditSheetState::Typed& typed, std::size_t row) {
  const auto& type = typed.types[row];
  for (std::size_t other = 0; other < typed.types.size(); ++other) {
    const auto& each = typed.types[other];
    if (other != row && each.is_active && each.name == type.name &&
        each.is_deposit == type.is_deposit) {
      throw CommandError("there is already a type " + Quoted(type.name) + " of that kind");
    }
  }
}

// The options that describe a type, as far as given.
void TypeIntoRow(const Arguments& arguments, AccountEditSheetState::Typed& typed, std::size_t row) {
  auto& type = typed.types[row];
  if (const auto name = arguments.Text("name")) type.name = *name;
  if (const auto kind = arguments.Text("kind")) {
    if (*kind != "debit" && *kind != "deposit") {
      throw CommandError("kind: expected debit or deposit, not " + Quoted(*kind));
    }
    type.is_deposit = *kind == "deposit";
  }
  if (const auto check = arguments.YesNo("check")) type.is_check = *check;
  if (type.name.empty()) throw CommandError("expected a name that is not empty");
  CheckName(typed, row);
}

// Makes the row the default of its kind, or no default any more. A type that has changed its kind
// is no longer the default of the other one.
void TypeDefault(const Arguments& arguments, AccountEditSheetState::Typed& typed, std::size_t row) {
  const auto index = static_cast<std::int32_t>(row);
  const bool is_deposit = typed.types[row].is_deposit;
  auto& own = is_deposit ? typed.default_deposit_type : typed.default_debit_type;
  auto& other = is_deposit ? typed.default_debit_type : typed.default_deposit_type;
  if (other == index) other = -1;
  const auto is_default = arguments.YesNo("default");
  if (!is_default) return;
  if (*is_default) {
    own = index;
  } else if (own == index) {
    own = -1;
  }
}

void AddType(Console& console, const Arguments& arguments) {
  (void)SelectedAccount(console);
  OpenAccountSheet(console);
  AccountEditSheetState::Typed typed = console.controller.accountSheet().State().typed;
  typed.types.push_back({.name = arguments.WordAt(0)});
  TypeIntoRow(arguments, typed, typed.types.size() - 1);
  TypeDefault(arguments, typed, typed.types.size() - 1);
  FinishAccountSheet(console, std::move(typed));
  ListTypes(console, arguments);
}

void EditType(Console& console, const Arguments& arguments) {
  (void)SelectedAccount(console);
  OpenAccountSheet(console);
  AccountEditSheetState::Typed typed = console.controller.accountSheet().State().typed;
  const std::size_t row = TypeRowNamed(typed, arguments.WordAt(0));
  TypeIntoRow(arguments, typed, row);
  TypeDefault(arguments, typed, row);
  FinishAccountSheet(console, std::move(typed));
  ListTypes(console, arguments);
}

void RemoveType(Console& console, const Arguments& arguments) {
  (void)SelectedAccount(console);
  OpenAccountSheet(console);
  AccountEditSheetState::Typed typed = console.controller.accountSheet().State().typed;
  const std::size_t row = TypeRowNamed(typed, arguments.WordAt(0));
  TakeTypeOutOfUse(typed, row);
  FinishAccountSheet(console, std::move(typed));
  ListTypes(console, arguments);
}

void RestoreType(Console& console, const Arguments& arguments) {
  (void)SelectedAccount(console);
  OpenAccountSheet(console);
  AccountEditSheetState::Typed typed = console.controller.accountSheet().State().typed;
  const std::size_t row = TypeRowNamed(typed, arguments.WordAt(0), false);
  BringTypeBack(typed, row);
  CheckName(typed, row);
  FinishAccountSheet(console, std::move(typed));
  ListTypes(console, arguments);
}

constexpr Option kTypeAddOptions[] = {
    {.name = "kind", .value = "debit|deposit", .help = "which entries may use it (debit)"},
    {.name = "check", .value = "yes|no", .help = "whether its entries are checks (no)"},
    {.name = "default", .value = "yes|no", .help = "whether new entries begin with it (no)"},
};

constexpr Option kTypeEditOptions[] = {
    {.name = "name", .value = "TEXT", .help = "the type's name, also in the entries that have it"},
    {.name = "kind", .value = "debit|deposit", .help = "which entries may use it"},
    {.name = "check", .value = "yes|no", .help = "whether its entries are checks"},
    {.name = "default", .value = "yes|no", .help = "whether new entries begin with it"},
};

constexpr Command kTypeCommands[] = {
    {.name = "types",
     .help = "lists the entry types of the selected account",
     .example = "types",
     .run = ListTypes,
     .works_in_review = true},
    {.name = "type add",
     .words = "NAME",
     .least_words = 1,
     .most_words = 1,
     .options = kTypeAddOptions,
     .help = "adds an entry type to the selected account",
     .example = "type add Salary kind=deposit",
     .run = AddType},
    {.name = "type edit",
     .words = "NUMBER|NAME",
     .least_words = 1,
     .most_words = 1,
     .options = kTypeEditOptions,
     .help = "changes an entry type of the selected account",
     .example = "type edit Food name=Groceries default=yes",
     .run = EditType},
    {.name = "type remove",
     .words = "NUMBER|NAME",
     .least_words = 1,
     .most_words = 1,
     .help = "removes an entry type; one that entries have stays with them but is not offered",
     .example = "type remove Food",
     .run = RemoveType},
    {.name = "type restore",
     .words = "NUMBER|NAME",
     .least_words = 1,
     .most_words = 1,
     .help = "offers an entry type again that was taken out of use",
     .example = "type restore Food",
     .run = RestoreType},
};

}  // namespace

std::span<const Command> TypeCommands() {
  return kTypeCommands;
}

}  // namespace tallyfold::console

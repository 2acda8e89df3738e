#include "app/controller.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/entry_table.h"
#include "console/lookup.h"
#include "console/printer.h"
#include "console/register_order.h"
#include "console/table.h"
#include "console/values.h"
#include "model/account.h"
#include "model/entry_split.h"

namespace tallyfold::console {
namespace {

void ShowRegister(Console& console, const Arguments& arguments) {
  const auto account = SelectedAccount(console);
  RegisterOrder order;
  if (const auto column = arguments.Text("sort")) {
    if (!IsRegisterColumn(*column)) {
      throw CommandError("sort: expected one of " + std::string(kRegisterColumns) + ", not " +
                         Quoted(*column));
    }
    order.column = *column;
  }
  order.descending = arguments.YesNo("descending").value_or(false);
  console.register_order = order;

  EntryList rows = account->GetEntries();
  SortEntries(rows, order);
  const EntryNames names(rows);
  const std::vector<double> balances = account->RunningBalances(rows);
  Table table(RegisterColumns());
  for (std::size_t row = 0; row < rows.size(); ++row) {
    table.Add(RegisterCells(*account, *rows[row], names.NameOfRow(row), balances[row]));
  }
  console.printer.Show(table);
}

// As ReadSplitRow reads it.
std::string SplitField(const std::string& text) {
  std::string field;
  for (const char c : text) {
    if (c == '|' || c == '\\') field += '\\';
    field += c;
  }
  return field;
}

void AddSplit(Table& table, const LDGRAccountEntrySplit& split) {
  for (std::size_t line = 0; line < LDGRAccountEntrySplit::kLines; ++line) {
    const std::string& description = split.GetDescription(line);
    const std::string& to_from = split.GetToFrom(line);
    const double amount = split.GetAmount(line);
    if (description.empty() && to_from.empty() && amount == 0.0) continue;
    table.Add(
        {"split", SplitField(description) + '|' + SplitField(to_from) + '|' + WriteAmount(amount)});
  }
}

void ShowEntry(Console& console, const Arguments& arguments) {
  const auto account = SelectedAccount(console);
  const auto entry = EntryNamed(console, arguments.WordAt(0));
  Table table({{"field"}, {"value"}});
  table.Add({"number", WriteNumber(entry->GetNumber())});
  table.Add({"kind", KindText(*entry)});
  table.Add({"date", WriteDate(entry->GetDate())});
  table.Add({"check", entry->IsCheck() ? WriteNumber(entry->GetCheckNumber()) : ""});
  table.Add({"type", TypeText(*account, *entry)});
  table.Add({"description", entry->GetDescription()});
  table.Add({"to/from", entry->GetToFrom()});
  table.Add({"amount", WriteAmount(entry->GetAmount())});
  table.Add({"cleared", WriteYesNo(entry->GetCleared())});
  table.Add({"tax", WriteYesNo(entry->GetTaxDeductible())});
  table.Add({"notes", entry->GetNotes()});
  table.Add({"balance", WriteAmount(account->GetRunningBalanceAtEntry(entry.get()))});
  if (entry->IsTransfer()) {
    table.Add({"other account", WriteNumber(entry->GetTransferAccount())});
    table.Add({"other entry", WriteNumber(entry->GetTransferEntry())});
  }
  if (entry->GetSplit() != nullptr) AddSplit(table, *entry->GetSplit());
  console.printer.Show(table);
}

constexpr Option kRegisterOptions[] = {
    {.name = "sort", .value = "COLUMN", .help = kRegisterColumns},
    {.name = "descending", .value = "yes|no", .help = "the other way round"},
};

constexpr Command kCommands[] = {
    {.name = "register",
     .options = kRegisterOptions,
     .help = "shows the entries of the selected account with their running balances",
     .example = "register sort=amount descending=yes",
     .run = ShowRegister},
    {.name = "show",
     .words = "ENTRY",
     .least_words = 1,
     .most_words = 1,
     .help = "shows all of one entry: notes, split, the other half of a transfer",
     .example = "show 12",
     .run = ShowEntry},
};

}  // namespace

std::span<const Command> RegisterCommands() {
  return kCommands;
}

}  // namespace tallyfold::console

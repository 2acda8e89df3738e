#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/controller.h"
#include "app/desk.h"
#include "app/views/registers.h"
#include "app/views/shown_entries.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/entry_table.h"
#include "console/lookup.h"
#include "console/printer.h"
#include "console/register_listing.h"
#include "console/register_order.h"
#include "console/table.h"
#include "console/values.h"
#include "model/account.h"
#include "model/entry_split.h"
#include "registers/account_table_view_data.h"
#include "storage/account_preferences.h"

namespace tallyfold::console {
namespace {

void ShowRegister(Console& console, const Arguments& arguments) {
  const RegisterListing listing = ListRegister(console, arguments);
  Table table(listing.is_of_all_accounts ? RegisterColumnsWithAccount() : RegisterColumns());
  EntryRows rows(console);
  double sum = 0.0;
  for (const auto& [account, entry] : listing.rows) {
    std::vector<std::string> cells = rows.CellsOf(account, entry);
    if (listing.is_of_all_accounts) cells.insert(cells.begin(), account->GetName());
    table.Add(std::move(cells));
    sum += entry->GetAmount();
  }
  console.printer.Show(table);
  if (listing.is_part) {
    Table figures({{"entries", Column::Align::Right}, {"sum", Column::Align::Right}});
    figures.Add({WriteNumber(static_cast<std::int64_t>(listing.rows.size())), WriteAmount(sum)});
    console.printer.Show(figures);
  }
  if (listing.locked > 0) {
    console.printer.Note("left out, because they are locked: " +
                         WriteNumber(static_cast<std::int64_t>(listing.locked)));
  }
  if (!listing.is_of_all_accounts && listing.rows.empty()) {
    const std::string hidden = console.controller.shownEntries().State().hidden_text;
    if (!hidden.empty()) console.printer.Note(hidden);
  }
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
  Table table({{"field"}, {"value", Column::Align::Left, Column::Long::GoesOn}});
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

// A column of the window's table by its identifier.
std::string ColumnNamed(std::string_view word) {
  word = ColumnIdentifier(word);
  std::string known;
  for (const TableColumn& column : DefaultRegisterColumns()) {
    if (column.identifier == word) return column.identifier;
    known += (known.empty() ? "" : ", ") + column.identifier;
  }
  throw CommandError("expected one of " + known + ", not " + Quoted(word));
}

void ShowColumns(const Console& console) {
  const auto& rows = console.controller.registers().currentTableDataSource();
  const std::string& table_identifier = rows.GetTableIdentifier();
  const auto& views = rows.GetAccountPreferences();
  Table table({{"column"}, {"title"}, {"sorted"}});
  for (const TableColumn& column : rows.VisibleTableColumns()) {
    const bool sorts =
        views != nullptr &&
        column.identifier == views->GetSelectedColumnIdentifierForTableIdentifier(table_identifier);
    const bool descends = sorts && views->GetSortDescendingForTableIdentifier(table_identifier);
    table.Add(
        {column.identifier, TitleOf(column), sorts ? (descends ? "descending" : "ascending") : ""});
  }
  console.printer.Show(table);
}

void ListColumns(Console& console, const Arguments& /*arguments*/) {
  static_cast<void>(SelectedAccount(console));
  ShowColumns(console);
}

void HideColumn(Console& console, const Arguments& arguments) {
  static_cast<void>(SelectedAccount(console));
  console.controller.registers().currentTableDataSource().HideTableColumnWithIdentifier(
      ColumnNamed(arguments.WordAt(0)));
  ShowColumns(console);
}

void ShowColumn(Console& console, const Arguments& arguments) {
  static_cast<void>(SelectedAccount(console));
  console.controller.registers().currentTableDataSource().ShowTableColumnWithIdentifier(
      ColumnNamed(arguments.WordAt(0)));
  ShowColumns(console);
}

void Sort(Console& console, const Arguments& arguments) {
  static_cast<void>(SelectedAccount(console));
  const std::string column = ColumnNamed(arguments.WordAt(0));
  if (!SortKeyOfColumn(column)) throw CommandError("sort: " + column + " cannot be sorted by");
  auto& shown = console.controller.registers().currentTableDataSource();
  shown.OrderBy(column, arguments.YesNo("descending").value_or(!shown.SortsDescending()));
  ShowColumns(console);
}

void SelectEntry(Console& console, const Arguments& arguments) {
  SelectEntryNamed(console, arguments.WordAt(0));
}

constexpr Option kSortOptions[] = {
    {.name = "descending", .value = "yes|no", .help = "which way; else the other way than before"},
};

// Tables of options live elsewhere, so this one is made when it is first asked for.
const std::vector<Command>& TableOfRegisterCommands() {
  static const std::vector<Command> kRegisterCommands = {
      {.name = "register",
       .options = ListingOptions(),
       .help = "shows what the filter passes, with running balances, in the order of the window; a "
               "column to sort by stays in force there",
       .example = "register from=2026-01-01 last=20",
       .run = ShowRegister,
       .works_in_review = true},
      {.name = "show",
       .words = "ENTRY",
       .least_words = 1,
       .most_words = 1,
       .help = "shows all of one entry: notes, split, the other half of a transfer",
       .example = "show 12",
       .run = ShowEntry,
       .works_in_review = true},
      {.name = "select entry",
       .words = "ENTRY",
       .least_words = 1,
       .most_words = 1,
       .help = "selects a row of the register",
       .example = "select entry 12",
       .run = SelectEntry},
      {.name = "sort",
       .words = "COLUMN",
       .least_words = 1,
       .most_words = 1,
       .options = kSortOptions,
       .help = "turns the window's register over by a column, as a click on its head does",
       .example = "sort amount",
       .run = Sort},
      {.name = "columns",
       .help = "lists the columns that the window's register shows, in their order",
       .example = "columns",
       .run = ListColumns},
      {.name = "column hide",
       .words = "COLUMN",
       .least_words = 1,
       .most_words = 1,
       .help = "hides a column of the window's register",
       .example = "column hide cleared",
       .run = HideColumn},
      {.name = "column show",
       .words = "COLUMN",
       .least_words = 1,
       .most_words = 1,
       .help = "shows a hidden column again",
       .example = "column show cleared",
       .run = ShowColumn},
  };
  return kRegisterCommands;
}

}  // namespace

std::span<const Command> RegisterCommands() {
  return TableOfRegisterCommands();
}

}  // namespace tallyfold::console

#include "console/entry_table.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "app/controller.h"
#include "app/desk.h"
#include "console/printer.h"
#include "console/register_order.h"
#include "console/shown_columns.h"
#include "console/values.h"
#include "ledger/transfer_links.h"
#include "model/account.h"
#include "registers/register_look.h"
#include "registers/rows_change.h"

namespace tallyfold::console {
namespace {

const ShownColumns& Shown() {
  static const ShownColumns kShown({{{"date"}, "date"},
                                    {{"check", Column::Align::Right}, "check"},
                                    {{"type"}, "type"},
                                    {{"description"}, "description"},
                                    {{"to/from"}, "toFrom"},
                                    {{"amount", Column::Align::Right}, "amount"},
                                    {{"cleared"}, "cleared"},
                                    {{"balance", Column::Align::Right}, "balance"}},
                                   DefaultRegisterColumns());
  return kShown;
}

void AddChangedEntry(Table& table, const Console& console,
                     const std::shared_ptr<LDGRAccount>& account,
                     const std::shared_ptr<LDGRAccountEntry>& entry) {
  RegisterRows rows;
  rows.SetAccount(account);
  rows.SetEntries({entry});
  std::vector<std::string> cells =
      RegisterCells(rows, 0, NameOfEntry(*account, console.register_order, *entry),
                    console.controller.desk().preferences());
  // What is in a locked account is not told, though the half of a transfer in it has changed.
  if (account->IsLocked()) cells.back().clear();
  cells.insert(cells.begin(), account->GetName());
  table.Add(std::move(cells));
}

}  // namespace

std::string TypeText(const LDGRAccount& account, const LDGRAccountEntry& entry) {
  return TypeTextOfEntry(&account, entry);
}

std::string KindText(const LDGRAccountEntry& entry) {
  if (entry.IsDebit()) return "debit";
  if (entry.IsDeposit()) return "deposit";
  return entry.IsTransfer() ? "transfer" : "";
}

std::vector<Column> RegisterColumns() {
  std::vector<Column> columns = {{"number", Column::Align::Right}};
  Shown().AddTo(columns);
  return columns;
}

std::vector<std::string> RegisterCells(const RegisterRows& rows, std::size_t row, std::string name,
                                       const LDGRPreferences& preferences) {
  std::vector<std::string> cells = {std::move(name)};
  Shown().AddTo(cells, [&](std::string_view column) {
    return rows.CellOf(row, column, {kPlainDays, preferences});
  });
  return cells;
}

std::string NameOfEntry(const LDGRAccount& account, const RegisterOrder& order,
                        const LDGRAccountEntry& entry) {
  if (account.EntriesWithNumber(entry.GetNumber()).size() == 1) {
    return WriteNumber(entry.GetNumber());
  }
  const std::optional<std::int32_t> row =
      RowOfRecord(InOrderOf(account.GetEntries(), order), &entry);
  return '#' + WriteNumber(row.value_or(0) + 1);
}

void ShowChangedEntries(const Console& console, const std::shared_ptr<LDGRAccount>& account,
                        const EntryList& entries, OtherHalf other_half) {
  std::vector<Column> columns = RegisterColumns();
  columns.insert(columns.begin(), {"account"});
  Table table(std::move(columns));
  for (const auto& entry : entries) {
    AddChangedEntry(table, console, account, entry);
    if (other_half == OtherHalf::Unchanged) continue;
    const auto linked = console.controller.transferLinks().Transfer_LinkedEntry(entry.get());
    const auto other_account =
        console.controller.desk().AccountWithNumber(entry->GetTransferAccount());
    if (linked == nullptr || other_account == nullptr) continue;
    AddChangedEntry(table, console, other_account, linked);
  }
  console.printer.Show(table);
}

}  // namespace tallyfold::console

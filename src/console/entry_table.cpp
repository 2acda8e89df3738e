#include "console/entry_table.h"

#include <algorithm>
#include <utility>

#include "app/controller.h"
#include "app/desk.h"
#include "console/printer.h"
#include "console/register_order.h"
#include "console/values.h"
#include "ledger/transfer_links.h"
#include "model/account.h"
#include "registers/register_look.h"

namespace tallyfold::console {
namespace {

void AddChangedEntry(Table& table, const Console& console, const LDGRAccount& account,
                     const LDGRAccountEntry& entry) {
  std::vector<std::string> cells =
      RegisterCells(account, entry, NameOfEntry(account, console.register_order, entry),
                    account.GetRunningBalanceAtEntry(&entry));
  // What is in a locked account is not told, though the half of a transfer in it has changed.
  if (account.IsLocked()) cells.back().clear();
  cells.insert(cells.begin(), account.GetName());
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
  return {{"number", Column::Align::Right},
          {"date"},
          {"check", Column::Align::Right},
          {"type"},
          {"description"},
          {"to/from"},
          {"amount", Column::Align::Right},
          {"cleared"},
          {"balance", Column::Align::Right}};
}

std::vector<std::string> RegisterCells(const LDGRAccount& account, const LDGRAccountEntry& entry,
                                       std::string name, double balance) {
  return {std::move(name),
          WriteDate(entry.GetDate()),
          entry.IsCheck() ? WriteNumber(entry.GetCheckNumber()) : "",
          TypeText(account, entry),
          entry.GetDescription(),
          entry.GetToFrom(),
          WriteAmount(entry.GetAmount()),
          entry.GetCleared() ? "yes" : "",
          WriteAmount(balance)};
}

std::string NameOfEntry(const LDGRAccount& account, const RegisterOrder& order,
                        const LDGRAccountEntry& entry) {
  const EntryList& entries = account.GetEntries();
  const auto alike = std::count_if(entries.begin(), entries.end(), [&](const auto& other) {
    return other->GetNumber() == entry.GetNumber();
  });
  if (alike == 1) return WriteNumber(entry.GetNumber());
  EntryList rows = entries;
  SortEntries(rows, order);
  const auto row = std::find_if(rows.begin(), rows.end(),
                                [&](const auto& other) { return other.get() == &entry; });
  return '#' + WriteNumber(row - rows.begin() + 1);
}

void ShowChangedEntries(const Console& console, const LDGRAccount& account,
                        const EntryList& entries, OtherHalf other_half) {
  std::vector<Column> columns = RegisterColumns();
  columns.insert(columns.begin(), {"account"});
  Table table(std::move(columns));
  for (const auto& entry : entries) {
    AddChangedEntry(table, console, account, *entry);
    if (other_half == OtherHalf::Unchanged) continue;
    const auto linked = console.controller.transferLinks().Transfer_LinkedEntry(entry.get());
    const auto other_account =
        console.controller.desk().AccountWithNumber(entry->GetTransferAccount());
    if (linked == nullptr || other_account == nullptr) continue;
    AddChangedEntry(table, console, *other_account, *linked);
  }
  console.printer.Show(table);
}

}  // namespace tallyfold::console

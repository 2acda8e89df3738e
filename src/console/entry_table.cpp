#include "console/entry_table.h"

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
#include "registers/register_rows.h"

namespace tallyfold::console {
namespace {

const ShownColumns& ShownEntries() {
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
  ShownEntries().AddTo(columns);
  return columns;
}

std::vector<Column> RegisterColumnsWithAccount() {
  std::vector<Column> columns = RegisterColumns();
  columns.insert(columns.begin(), {"account"});
  return columns;
}

std::string EntryRows::NameOf(const LDGRAccount& account, const LDGRAccountEntry& entry) {
  auto names = names_.find(&account);
  if (names == names_.end()) {
    if (account.EntriesWithNumber(entry.GetNumber()).size() == 1) {
      return WriteNumber(entry.GetNumber());
    }
    names = names_.emplace(&account, EntryNames(RowsInWindow(console_, account))).first;
  }
  return names->second.NameOf(&entry);
}

std::vector<std::string> EntryRows::CellsOf(const std::shared_ptr<LDGRAccount>& account,
                                            const std::shared_ptr<LDGRAccountEntry>& entry) {
  RegisterRows rows;
  rows.SetAccount(account);
  rows.SetEntries({entry});
  const TableFormat format{kPlainDays, console_.controller.desk().preferences()};
  std::vector<std::string> cells = {NameOf(*account, *entry)};
  ShownEntries().AddTo(cells,
                       [&](std::string_view column) { return rows.CellOf(0, column, format); });
  return cells;
}

void ShowChangedEntries(const Console& console, const std::shared_ptr<LDGRAccount>& account,
                        const EntryList& entries, OtherHalf other_half) {
  Table table(RegisterColumnsWithAccount());
  EntryRows rows(console);
  const auto add = [&table, &rows](const std::shared_ptr<LDGRAccount>& of, const auto& entry) {
    std::vector<std::string> cells = rows.CellsOf(of, entry);
    // What is in a locked account is not told, though the half of a transfer in it has changed.
    if (of->IsLocked()) cells.back().clear();
    cells.insert(cells.begin(), of->GetName());
    table.Add(std::move(cells));
  };
  for (const auto& entry : entries) {
    add(account, entry);
    if (other_half == OtherHalf::Unchanged) continue;
    const auto linked = console.controller.transferLinks().Transfer_LinkedEntry(entry.get());
    const auto other_account =
        console.controller.desk().AccountWithNumber(entry->GetTransferAccount());
    if (linked == nullptr || other_account == nullptr) continue;
    add(other_account, linked);
  }
  console.printer.Show(table);
}

}  // namespace tallyfold::console

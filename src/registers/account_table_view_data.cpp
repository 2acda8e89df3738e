#include "registers/account_table_view_data.h"

#include <utility>

#include "model/date_number.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

// Reached only by a mistake of the front end, which then shows an empty cell.
void LogInvalidRow() {
  Log("Invalid parameter not satisfying: theRow >= 0 && theRow < [entries count]");
}

}  // namespace

LDGRAccountTableViewData::LDGRAccountTableViewData(const TableHost& host)
    : host_(host), date_format_string_(CurrentLocale().ShortDateFormat()) {}

LDGRAccountTableViewData::~LDGRAccountTableViewData() {
  SetTableView(nullptr);
}

void LDGRAccountTableViewData::SetTableView(TableState* table) {
  TableState* const former = GetTableView();
  if (former != nullptr && former->DataSource() == this) former->SetDataSource(nullptr);
  layout_.SetTable(table);
  are_rows_told_ = false;
  if (table != nullptr) table->SetDataSource(this);
}

void LDGRAccountTableViewData::SetAccount(std::shared_ptr<LDGRAccount> account) {
  if (rows_.Account() == account) return;
  rows_.SetAccount(std::move(account));
  SetEntries({});
  if (TableState* const table = GetTableView()) table->SelectRow(TableState::kNoRow);
}

void LDGRAccountTableViewData::SetDateFormat(std::optional<std::string_view> format) {
  if (format) date_format_string_ = *format;
}

void LDGRAccountTableViewData::SetEntries(EntryList entries) {
  rows_.SetEntries(std::move(entries));
  are_rows_told_ = false;
}

void LDGRAccountTableViewData::Reload(EntryList entries) {
  const auto selected = GetSelectedEntry();
  const EntryList before = rows_.SetEntries(std::move(entries));
  rows_.PrepareFigures();
  if (const auto key = SortKeyOfColumn(SortColumn())) {
    rows_.Sort({key, layout_.SortsDescending()});
  }
  const auto awaited = std::exchange(awaited_row_, std::nullopt);
  ShowRows(are_rows_told_ ? ChangeOfRows(before, rows_.Entries()) : RowsChange{},
           awaited ? *awaited : EntryToRow(selected.get()).value_or(TableState::kNoRow));
}

void LDGRAccountTableViewData::ShowRows(const RowsChange& change, std::int32_t selected_row) {
  TableState* const table = GetTableView();
  if (table == nullptr) return;
  layout_.ShowSortColumn(SortColumn());
  are_rows_told_ = true;
  const bool is_selected = RowToEntry(selected_row) != nullptr;
  table->TakeRows(change, is_selected ? selected_row : TableState::kNoRow);
  if (is_selected) SelectRow(selected_row);
}

// --- Selection ----------------------------------------------------------------------------------

std::shared_ptr<LDGRAccountEntry> LDGRAccountTableViewData::GetSelectedEntry() const {
  const TableState* const table = GetTableView();
  return table != nullptr ? RowToEntry(table->SelectedRow()) : nullptr;
}

std::shared_ptr<LDGRAccountEntry> LDGRAccountTableViewData::RowToEntry(std::int32_t row) const {
  return RecordOfRow(rows_.Entries(), row);
}

std::optional<std::int32_t> LDGRAccountTableViewData::EntryToRow(
    const LDGRAccountEntry* entry) const {
  return RowOfRecord(rows_.Entries(), entry);
}

void LDGRAccountTableViewData::SelectRow(std::int32_t row) {
  TableState* const table = GetTableView();
  if (table == nullptr) return;
  if (RowToEntry(row) == nullptr) return table->SelectRow(TableState::kNoRow);
  table->SelectRow(row);
  table->ScrollRowToVisible(row);
  layout_.StoreRow(row);
}

void LDGRAccountTableViewData::SelectEntry(const LDGRAccountEntry* entry) {
  SelectRow(EntryToRow(entry).value_or(TableState::kNoRow));
}

void LDGRAccountTableViewData::ScrollToEntry(const LDGRAccountEntry* entry) {
  TableState* const table = GetTableView();
  if (table == nullptr) return;
  if (const auto row = EntryToRow(entry)) table->ScrollRowToVisible(*row);
}

// --- Order --------------------------------------------------------------------------------------

void LDGRAccountTableViewData::ClickedTableColumn(std::string_view identifier) {
  const auto key = SortKeyOfColumn(identifier);
  if (!key || !layout_.TurnOrderOver(identifier)) return;
  const auto selected = GetSelectedEntry();
  const auto former_rows = rows_.Sort({key, layout_.SortsDescending()});
  ShowRows(are_rows_told_
               ? RowsChange{.kind = RowsChange::Kind::Reordered, .former_rows = former_rows}
               : RowsChange{},
           EntryToRow(selected.get()).value_or(TableState::kNoRow));
}

void LDGRAccountTableViewData::SortByColumnIdentifier(std::string_view identifier,
                                                      bool descending) {
  if (const auto key = SortKeyOfColumn(identifier)) SortBy(*key, descending);
}

void LDGRAccountTableViewData::SortBy(RegisterSortKey key, bool descending) {
  rows_.Sort({key, descending});
  are_rows_told_ = false;
}

std::string LDGRAccountTableViewData::SortColumn() const {
  std::string stored = layout_.SortColumn();
  if (SortKeyOfColumn(stored)) return stored;
  if (const TableState* table = GetTableView()) {
    for (const TableColumn& column : table->Columns()) {
      if (SortKeyOfColumn(column.identifier)) return column.identifier;
    }
  }
  return "";
}

// --- Layout -------------------------------------------------------------------------------------

void LDGRAccountTableViewData::ReconfigureTable() {
  if (!layout_.Apply()) return;
  if (rows_.Entries().empty()) {
    awaited_row_ = layout_.StoredRow();
  } else {
    SelectRow(layout_.StoredRow());
  }
}

void LDGRAccountTableViewData::Redraw() {
  TableState* const table = GetTableView();
  if (table == nullptr) return;
  layout_.ShowSortColumn(SortColumn());
  if (std::exchange(are_rows_told_, true)) return table->ReloadData();
  table->TakeRows({}, table->SelectedRow());
}

void LDGRAccountTableViewData::HideTableColumnWithIdentifier(std::string_view identifier) {
  if (layout_.HideColumn(identifier)) Redraw();
}

void LDGRAccountTableViewData::ShowTableColumnWithIdentifier(std::string_view identifier) {
  if (layout_.ShowColumn(identifier)) Redraw();
}

std::vector<TableColumn> LDGRAccountTableViewData::VisibleTableColumns() const {
  const TableState* const table = GetTableView();
  return table != nullptr ? table->Columns() : std::vector<TableColumn>();
}

// --- Rows ---------------------------------------------------------------------------------------

std::size_t LDGRAccountTableViewData::numberOfRowsInTableView() const {
  return host_.IsUnlocked() ? rows_.Entries().size() : 0;
}

TableCell LDGRAccountTableViewData::tableView(std::string_view column, std::size_t row) const {
  if (row < numberOfRowsInTableView()) return rows_.CellOf(row, column, Format());
  LogInvalidRow();
  return {};
}

RowLook LDGRAccountTableViewData::LookOfRow(std::size_t row) const {
  if (row >= numberOfRowsInTableView()) return {};
  return rows_.LookOf(row, host_.preferences(), TodaysDateNumber());
}

double LDGRAccountTableViewData::RunningBalanceOfRow(std::size_t row) const {
  return row < numberOfRowsInTableView() ? rows_.RunningBalanceOf(row) : 0.0;
}

double LDGRAccountTableViewData::TotalOfRows() const {
  return host_.IsUnlocked() ? rows_.Total() : 0.0;
}

}  // namespace tallyfold

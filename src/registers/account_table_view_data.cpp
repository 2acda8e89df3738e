#include "registers/account_table_view_data.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
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
  filter_ = nullptr;
  are_rows_told_ = false;
}

void LDGRAccountTableViewData::Reload(EntryList entries) {
  const auto selected = GetSelectedEntry();
  const EntryList before = rows_.SetEntries(std::move(entries));
  filter_ = nullptr;
  if (const auto order = WantedOrder()) rows_.Sort(*order);
  ShowRows(are_rows_told_ ? ChangeOfRows(before, rows_.Entries()) : RowsChange{}, selected);
}

void LDGRAccountTableViewData::ReloadFiltered(std::shared_ptr<const LDGRFilter> filter) {
  const auto& account = rows_.Account();
  if (account == nullptr) return Reload(EntryList());
  const std::uint64_t mark = account->EntriesMark();
  // A filter of days has other rules on another day.
  const bool is_same = filter_ != nullptr && rows_.Order() == WantedOrder() &&
                       filter_->asDictionary() == filter->asDictionary();
  const auto touches = is_same ? account->EntriesTouchedSince(filtered_mark_) : std::nullopt;
  const auto selected = GetSelectedEntry();
  const auto passes = [&filter](const auto& entry, bool /*is_row*/) {
    return !filter->Filter(EntryList{entry}).empty();
  };
  if (const auto change = touches ? rows_.TakeUp(*touches, passes) : std::nullopt) {
    ShowRows(are_rows_told_ ? *change : RowsChange{}, selected);
  } else {
    Reload(filter->Filter(account->GetEntries()));
  }
  filter_ = std::move(filter);
  filtered_mark_ = sorted_mark_ = mark;
}

void LDGRAccountTableViewData::TakeSaved(const EntryList& saved, const LDGRFilter& filter) {
  const auto& account = rows_.Account();
  const EntryList passed = filter.Filter(saved);
  const auto is_passed = [&passed](const auto& entry) {
    return std::ranges::find(passed, entry) != passed.end();
  };
  if (account == nullptr ||
      (passed.empty() && std::ranges::none_of(saved, [this](const auto& each) {
         return EntryToRow(each.get()).has_value();
       }))) {
    return;
  }
  const std::uint64_t mark = account->EntriesMark();
  const bool is_sorted = filter_ != nullptr && rows_.Order() == WantedOrder();
  const auto since = is_sorted ? account->EntriesTouchedSince(sorted_mark_) : std::nullopt;
  if (since) {
    std::vector<EntryTouch> touches(since->begin(), since->end());
    for (const auto& entry : saved) touches.push_back({entry, true});
    const auto selected = GetSelectedEntry();
    const auto stays = [&](const auto& entry, bool is_row) { return is_row || is_passed(entry); };
    if (const auto change = rows_.TakeUp(touches, stays)) {
      sorted_mark_ = mark;
      return ShowRows(are_rows_told_ ? *change : RowsChange{}, selected);
    }
  }
  EntryList entries = rows_.Entries();
  const std::unordered_set<std::shared_ptr<LDGRAccountEntry>> known(entries.begin(), entries.end());
  std::ranges::copy_if(passed, std::back_inserter(entries),
                       [&known](const auto& entry) { return !known.contains(entry); });
  Reload(std::move(entries));
}

std::optional<RegisterOrder> LDGRAccountTableViewData::WantedOrder() const {
  const auto key = SortKeyOfColumn(SortColumn());
  if (!key) return std::nullopt;
  return RegisterOrder{key, layout_.SortsDescending()};
}

void LDGRAccountTableViewData::ShowRows(const RowsChange& change,
                                        const std::shared_ptr<LDGRAccountEntry>& selected) {
  const auto awaited = std::exchange(awaited_row_, std::nullopt);
  ShowRows(change, awaited ? *awaited : EntryToRow(selected.get()).value_or(TableState::kNoRow));
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
  // Level entries stand as they stood before, and not in the order of the account.
  filter_ = nullptr;
  ShowRows(are_rows_told_
               ? RowsChange{.kind = RowsChange::Kind::Reordered, .former_rows = former_rows}
               : RowsChange{},
           EntryToRow(selected.get()).value_or(TableState::kNoRow));
}

bool LDGRAccountTableViewData::OrderBy(std::string_view identifier, bool descending) {
  const auto& account = rows_.Account();
  if (account == nullptr || !SortKeyOfColumn(identifier) ||
      !layout_.StoreOrder(identifier, descending)) {
    return false;
  }
  const EntryList& rows = rows_.Entries();
  const std::unordered_set<std::shared_ptr<LDGRAccountEntry>> shown(rows.begin(), rows.end());
  EntryList entries;
  entries.reserve(rows.size());
  std::ranges::copy_if(account->GetEntries(), std::back_inserter(entries),
                       [&shown](const auto& entry) { return shown.contains(entry); });
  Reload(std::move(entries));
  return true;
}

void LDGRAccountTableViewData::SortByColumnIdentifier(std::string_view identifier,
                                                      bool descending) {
  if (const auto key = SortKeyOfColumn(identifier)) SortBy(*key, descending);
}

void LDGRAccountTableViewData::SortBy(RegisterSortKey key, bool descending) {
  rows_.Sort({key, descending});
  filter_ = nullptr;
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

std::string LDGRAccountTableViewData::SpeakableRow(std::size_t row) const {
  if (row >= numberOfRowsInTableView()) return {};
  return rows_.Entries()[row]->asSpeakableString();
}

double LDGRAccountTableViewData::RunningBalanceOfRow(std::size_t row) const {
  return row < numberOfRowsInTableView() ? rows_.RunningBalanceOf(row) : 0.0;
}

double LDGRAccountTableViewData::TotalOfRows() const {
  return host_.IsUnlocked() ? rows_.Total() : 0.0;
}

}  // namespace tallyfold

#include "registers/account_table_view_data.h"

#include <algorithm>
#include <array>
#include <utility>

#include "model/date_format.h"
#include "model/date_number.h"
#include "model/entry_walk.h"
#include "platform/ambient.h"
#include "registers/register_look.h"

namespace tallyfold {
namespace {

constexpr std::string_view kCheck = "check";
constexpr std::string_view kDate = "date";
constexpr std::string_view kType = "type";
constexpr std::string_view kDescription = "description";
constexpr std::string_view kAmount = "amount";
constexpr std::string_view kCleared = "cleared";
constexpr std::string_view kToFrom = "toFrom";
constexpr std::string_view kBalance = "balance";

constexpr std::string_view kCheckMark = "\u2713";
constexpr std::string_view kDownArrow = "tableView_DownArrow.tif";
constexpr std::string_view kUpArrow = "tableView_UpArrow.tif";

struct RegisterColumn {
  std::string_view identifier;
  std::string_view title;  // English key
  double width;
};

constexpr std::array kColumns = {
    RegisterColumn{kDate, "Date", 80},       RegisterColumn{kCheck, "Check", 60},
    RegisterColumn{kType, "Type", 110},      RegisterColumn{kDescription, "Description", 200},
    RegisterColumn{kToFrom, "To/From", 150}, RegisterColumn{kCleared, "Resolved", 60},
    RegisterColumn{kAmount, "Amount", 90},   RegisterColumn{kBalance, "Balance", 90},
};

std::string_view IdentifierOf(const plist::Value& column) {
  return column.DictionaryValue().Get("identifier").StringValue();
}

// Reached only by a mistake of the front end, which then shows an empty cell.
void LogInvalidRow() {
  Log("Invalid parameter not satisfying: theRow >= 0 && theRow < [entries count]");
}

}  // namespace

std::vector<TableColumn> DefaultRegisterColumns() {
  std::vector<TableColumn> columns;
  for (const RegisterColumn& column : kColumns) {
    columns.push_back({std::string(column.identifier), column.width});
  }
  return columns;
}

std::string_view TitleOfRegisterColumn(std::string_view identifier) noexcept {
  const auto* const found = std::ranges::find(kColumns, identifier, &RegisterColumn::identifier);
  return found != kColumns.end() ? found->title : "";
}

LDGRAccountTableViewData::LDGRAccountTableViewData(const Host& host)
    : host_(host), date_format_string_(CurrentLocale().ShortDateFormat()) {}

LDGRAccountTableViewData::~LDGRAccountTableViewData() {
  SetTableView(nullptr);
}

void LDGRAccountTableViewData::SetTableView(TableView* table) {
  if (table_ != nullptr && table_->DataSource() == this) table_->SetDataSource(nullptr);
  table_ = table;
  if (table_ != nullptr) table_->SetDataSource(this);
}

void LDGRAccountTableViewData::SetTableIdentifier(std::optional<std::string_view> identifier) {
  if (identifier) table_identifier_ = *identifier;
}

void LDGRAccountTableViewData::SetAccountPreferences(
    std::shared_ptr<LDGRAccountPreferences> preferences) {
  preferences_ = std::move(preferences);
}

void LDGRAccountTableViewData::SetAccount(std::shared_ptr<LDGRAccount> account) {
  if (account_ == account) return;
  account_ = std::move(account);
  account_balances_ = {};
  SetEntries({});
  if (table_ != nullptr) table_->SelectRow(TableView::kNoRow);
}

void LDGRAccountTableViewData::SetDateFormat(std::optional<std::string_view> format) {
  if (format) date_format_string_ = *format;
}

void LDGRAccountTableViewData::SetEntries(EntryList entries) {
  entries_ = std::move(entries);
  figures_.are_known = false;
}

void LDGRAccountTableViewData::Reload(EntryList entries) {
  const auto selected = GetSelectedEntry();
  SetEntries(std::move(entries));
  // In the order of the account the figures are computed fastest.
  static_cast<void>(UpToDateFigures());
  SortByColumnIdentifier(SortColumn(), SortsDescending());
  if (awaited_row_ && !entries_.empty()) {
    SelectRow(*std::exchange(awaited_row_, std::nullopt));
  } else {
    SelectEntry(selected.get());
  }
  Redraw();
}

// --- Selection ----------------------------------------------------------------------------------

std::shared_ptr<LDGRAccountEntry> LDGRAccountTableViewData::GetSelectedEntry() const {
  return table_ != nullptr ? RowToEntry(table_->SelectedRow()) : nullptr;
}

std::shared_ptr<LDGRAccountEntry> LDGRAccountTableViewData::RowToEntry(std::int32_t row) const {
  const bool exists = row >= 0 && static_cast<std::size_t>(row) < entries_.size();
  return exists ? entries_[static_cast<std::size_t>(row)] : nullptr;
}

std::optional<std::int32_t> LDGRAccountTableViewData::EntryToRow(
    const LDGRAccountEntry* entry) const {
  const auto found =
      std::ranges::find(entries_, entry, [](const auto& other) { return other.get(); });
  if (entry == nullptr || found == entries_.end()) return std::nullopt;
  return static_cast<std::int32_t>(found - entries_.begin());
}

void LDGRAccountTableViewData::SelectRow(std::int32_t row) {
  if (table_ == nullptr) return;
  if (RowToEntry(row) == nullptr) return table_->SelectRow(TableView::kNoRow);
  table_->SelectRow(row);
  table_->ScrollRowToVisible(row);
  if (preferences_ != nullptr) preferences_->SetSelectedRow(row, table_identifier_);
}

void LDGRAccountTableViewData::SelectEntry(const LDGRAccountEntry* entry) {
  SelectRow(EntryToRow(entry).value_or(TableView::kNoRow));
}

void LDGRAccountTableViewData::ScrollToEntry(const LDGRAccountEntry* entry) {
  if (table_ == nullptr) return;
  if (const auto row = EntryToRow(entry)) table_->ScrollRowToVisible(*row);
}

// --- Order --------------------------------------------------------------------------------------

void LDGRAccountTableViewData::ClickedTableColumn(std::string_view identifier) {
  if (preferences_ == nullptr || !SortKeyOfColumn(identifier)) return;
  const auto selected = GetSelectedEntry();
  const bool descending = !SortsDescending();
  preferences_->SetSortDescending(descending, table_identifier_);
  preferences_->SetSelectedColumnIdentifier(identifier, table_identifier_);
  SortByColumnIdentifier(identifier, descending);
  SelectEntry(selected.get());
  Redraw();
}

void LDGRAccountTableViewData::SortByColumnIdentifier(std::string_view identifier,
                                                      bool descending) {
  if (const auto key = SortKeyOfColumn(identifier)) SortBy(*key, descending);
}

void LDGRAccountTableViewData::SortBy(RegisterSortKey key, bool descending) {
  const std::vector<std::uint32_t> order = OrderOfEntries(entries_, key, descending);
  EntryList entries;
  entries.reserve(order.size());
  for (const std::uint32_t index : order) entries.push_back(std::move(entries_[index]));
  entries_ = std::move(entries);
  if (!figures_.are_known) return;
  std::vector<double> balances;
  balances.reserve(order.size());
  for (const std::uint32_t index : order) balances.push_back(figures_.balances[index]);
  figures_.balances = std::move(balances);
}

std::string LDGRAccountTableViewData::SortColumn() const {
  if (preferences_ != nullptr) {
    std::string stored =
        preferences_->GetSelectedColumnIdentifierForTableIdentifier(table_identifier_);
    if (SortKeyOfColumn(stored)) return stored;
  }
  if (table_ != nullptr) {
    for (const TableColumn& column : table_->Columns()) {
      if (SortKeyOfColumn(column.identifier)) return column.identifier;
    }
  }
  return "";
}

bool LDGRAccountTableViewData::SortsDescending() const {
  return preferences_ != nullptr &&
         preferences_->GetSortDescendingForTableIdentifier(table_identifier_);
}

// --- Layout -------------------------------------------------------------------------------------

void LDGRAccountTableViewData::ReconfigureTable() {
  if (table_ == nullptr || preferences_ == nullptr) return;
  table_->ClearIndicatorImages();
  for (const TableColumn& hidden : table_->HiddenColumns()) table_->ShowColumn(hidden.identifier);
  PlaceStoredColumns(*table_);
  HideStoredColumns(*table_);
  const std::int32_t row =
      std::max(preferences_->GetSelectedRowForTableIdentifier(table_identifier_), 0);
  if (entries_.empty()) {
    awaited_row_ = row;
  } else {
    SelectRow(row);
  }
}

void LDGRAccountTableViewData::PlaceStoredColumns(TableView& table) const {
  const auto columns = preferences_->GetColumnsForTableIdentifier(table_identifier_);
  if (!columns) return;
  for (const plist::Value& column : *columns) {
    const auto index = table.ColumnWithIdentifier(IdentifierOf(column));
    const plist::Value width = column.DictionaryValue().Get("width");
    if (index && width.IsNumber() && width.IntegerValue() > -1) {
      table.SetColumnWidth(*index, width.IntegerValue());
    }
  }
  std::size_t place = 0;
  for (const plist::Value& column : *columns) {
    if (const auto index = table.ColumnWithIdentifier(IdentifierOf(column))) {
      table.MoveColumn(*index, place++);
    }
  }
}

void LDGRAccountTableViewData::HideStoredColumns(TableView& table) const {
  const auto columns = preferences_->GetHiddenColumnsForTableIdentifier(table_identifier_);
  if (!columns) return;
  for (const plist::Value& column : *columns) {
    const plist::Dictionary stored = column.DictionaryValue();
    const auto index = table.ColumnWithIdentifier(IdentifierOf(column));
    if (!index) continue;
    if (const plist::Value& width = stored.Get("width");
        width.IsNumber() && width.IntegerValue() > -1) {
      table.SetColumnWidth(*index, width.IntegerValue());
    }
    const std::int32_t place = stored.Get("lastIndex").IntegerValue();
    table.HideColumn(*index, static_cast<std::size_t>(std::max(place, 0)));
  }
}

void LDGRAccountTableViewData::Redraw() {
  if (table_ == nullptr) return;
  const std::string column = SortColumn();
  if (preferences_ != nullptr && !column.empty()) {
    preferences_->SetSelectedColumnIdentifier(column, table_identifier_);
  }
  if (table_->ColumnWithIdentifier(column)) {
    table_->SetHighlightedColumn(column, SortsDescending() ? kDownArrow : kUpArrow);
  } else {
    table_->ClearIndicatorImages();
  }
  table_->ReloadData();
}

void LDGRAccountTableViewData::HideTableColumnWithIdentifier(std::string_view identifier) {
  if (table_ == nullptr || preferences_ == nullptr) return;
  const auto index = table_->ColumnWithIdentifier(identifier);
  if (!index) return;
  plist::Dictionary stored;
  stored.Set("identifier", identifier);
  stored.Set("width", plist::Value(table_->Columns()[*index].width).IntegerValue());
  stored.Set("show", false);
  stored.Set("lastIndex", static_cast<std::int32_t>(*index));
  if (!table_->HideColumn(*index, *index)) return;
  plist::Array hidden =
      preferences_->GetHiddenColumnsForTableIdentifier(table_identifier_).value_or(plist::Array());
  hidden.Append(stored);
  preferences_->SetHiddenColumns(hidden, table_identifier_);
  Redraw();
}

void LDGRAccountTableViewData::ShowTableColumnWithIdentifier(std::string_view identifier) {
  if (table_ == nullptr || preferences_ == nullptr || !table_->ShowColumn(identifier)) return;
  plist::Array others;
  if (const auto hidden = preferences_->GetHiddenColumnsForTableIdentifier(table_identifier_)) {
    for (const plist::Value& column : *hidden) {
      if (IdentifierOf(column) != identifier) others.Append(column);
    }
  }
  preferences_->SetHiddenColumns(others, table_identifier_);
  Redraw();
}

std::vector<TableColumn> LDGRAccountTableViewData::VisibleTableColumns() const {
  return table_ != nullptr ? table_->Columns() : std::vector<TableColumn>();
}

// --- Rows ---------------------------------------------------------------------------------------

std::size_t LDGRAccountTableViewData::numberOfRowsInTableView() const {
  return host_.IsUnlocked() ? entries_.size() : 0;
}

TableCell LDGRAccountTableViewData::tableView(std::string_view column, std::size_t row) const {
  if (row >= numberOfRowsInTableView()) {
    LogInvalidRow();
    return {};
  }
  const LDGRAccountEntry& entry = *entries_[row];
  if (column == kDate) {
    return {FormatDate(DateNumberToNSCalendarDate(entry.GetDate()), date_format_string_)};
  }
  if (column == kCheck) {
    if (!entry.IsCheck()) return {};
    return {std::to_string(entry.GetCheckNumber()), TableCell::Alignment::Right};
  }
  if (column == kType) return {TypeTextOfEntry(account_.get(), entry)};
  if (column == kDescription) return {entry.GetDescription()};
  if (column == kToFrom) return {entry.GetToFrom()};
  if (column == kCleared) return {std::string(entry.GetCleared() ? kCheckMark : "")};
  if (column == kAmount) return {entry.GetAmount(), TableCell::Alignment::Right};
  if (column == kBalance) return {RunningBalanceOfRow(row), TableCell::Alignment::Right};
  return {};
}

double LDGRAccountTableViewData::RunningBalanceOfRow(std::size_t row) const {
  if (row >= numberOfRowsInTableView()) return 0.0;
  return UpToDateFigures().balances[row];
}

double LDGRAccountTableViewData::TotalOfRows() const {
  return host_.IsUnlocked() ? UpToDateFigures().total : 0.0;
}

std::vector<double> LDGRAccountTableViewData::BalancesOfRows() const {
  if (account_ == nullptr) return std::vector<double>(entries_.size(), 0.0);
  if (account_balances_.revision != account_->LedgerRevision()) {
    account_balances_ = {account_->LedgerRevision(),
                         {account_->GetEntries(), account_->GetStartingBalance()}};
  }
  return account_balances_.table.Of(entries_);
}

const LDGRAccountTableViewData::Figures& LDGRAccountTableViewData::UpToDateFigures() const {
  const std::uint64_t revision = account_ != nullptr ? account_->LedgerRevision() : 0;
  if (figures_.are_known && figures_.revision == revision) return figures_;
  figures_.balances = BalancesOfRows();
  figures_.total = 0.0;
  WalkEntries(entries_,
              [this](const LDGRAccountEntry& entry) { figures_.total += entry.GetAmount(); });
  figures_.are_known = true;
  figures_.revision = revision;
  return figures_;
}

}  // namespace tallyfold

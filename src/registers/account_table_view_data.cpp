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

void LDGRAccountTableViewData::SetTableView(TableState* table) {
  TableState* const former = GetTableView();
  if (former != nullptr && former->DataSource() == this) former->SetDataSource(nullptr);
  layout_.SetTable(table);
  if (table != nullptr) table->SetDataSource(this);
}

void LDGRAccountTableViewData::SetAccount(std::shared_ptr<LDGRAccount> account) {
  if (account_ == account) return;
  account_ = std::move(account);
  account_balances_ = {};
  SetEntries({});
  if (TableState* const table = GetTableView()) table->SelectRow(TableState::kNoRow);
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
  SortByColumnIdentifier(SortColumn(), layout_.SortsDescending());
  if (const auto awaited = std::exchange(awaited_row_, std::nullopt)) {
    SelectRow(*awaited);
  } else {
    SelectEntry(selected.get());
  }
  Redraw();
}

// --- Selection ----------------------------------------------------------------------------------

std::shared_ptr<LDGRAccountEntry> LDGRAccountTableViewData::GetSelectedEntry() const {
  const TableState* const table = GetTableView();
  return table != nullptr ? RowToEntry(table->SelectedRow()) : nullptr;
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
  if (!SortKeyOfColumn(identifier) || !layout_.TurnOrderOver(identifier)) return;
  const auto selected = GetSelectedEntry();
  SortByColumnIdentifier(identifier, layout_.SortsDescending());
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
  if (entries_.empty()) {
    awaited_row_ = layout_.StoredRow();
  } else {
    SelectRow(layout_.StoredRow());
  }
}

void LDGRAccountTableViewData::Redraw() {
  layout_.ShowSortColumn(SortColumn());
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
  if (account_balances_.revision != account_->MoneyRevision()) {
    account_balances_ = {account_->MoneyRevision(),
                         {account_->GetEntries(), account_->GetStartingBalance()}};
  }
  return account_balances_.table.Of(entries_);
}

const LDGRAccountTableViewData::Figures& LDGRAccountTableViewData::UpToDateFigures() const {
  const std::uint64_t revision = account_ != nullptr ? account_->MoneyRevision() : 0;
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

#include "app/exchange/qif_import_table_data.h"

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>

#include "model/date_number.h"
#include "model/entry_type.h"
#include "registers/register_look.h"
#include "registers/register_rows.h"

namespace tallyfold {
namespace {

using Entry = LDGRQIFImportEntry;

template <auto Compare>
int By(const Entry& a, const Entry& b) {
  return (a.*Compare)(b);
}

constexpr std::string_view kImport = "import";
constexpr std::string_view kDate = "date";
constexpr std::string_view kType = "type";
constexpr std::string_view kMatch = "match";

struct ColumnOrder {
  std::string_view identifier;
  int (*compare)(const Entry& a, const Entry& b);
};

constexpr std::array kOrders = {
    ColumnOrder{kImport, By<&Entry::ImportIsGreaterThan>},
    ColumnOrder{kDate, By<&Entry::DateIsGreaterThan>},
    ColumnOrder{"check", By<&Entry::CheckNumberIsGreaterThan>},
    ColumnOrder{kType, By<&Entry::TypePrimaryDateSecondaryIsGreaterThan>},
    ColumnOrder{"description", By<&Entry::DescriptionIsGreaterThan>},
    ColumnOrder{"toFrom", By<&Entry::ToFromIsGreaterThan>},
    ColumnOrder{"cleared", By<&Entry::ClearedIsGreaterThan>},
    ColumnOrder{"amount", By<&Entry::AmountIsGreaterThan>},
};

}  // namespace

std::vector<TableColumn> ReviewColumns() {
  std::vector<TableColumn> columns = DefaultRegisterColumns();
  std::erase_if(columns, [](const TableColumn& column) { return column.identifier == "balance"; });
  columns.insert(columns.begin(), {std::string(kImport), 50, "Import", TableColumn::Content::Mark});
  columns.push_back({std::string(kMatch), 110, "In the Account"});
  return columns;
}

TableCell DayCellOfFile(DateNumber day, const TableFormat& format) {
  return day == 0 ? TableCell{.number = 0.0} : DayCell(day, format);
}

TableCell CellOfReviewed(const LDGRQIFImportEntry& entry, std::string_view column,
                         const TableFormat& format) {
  if (column == kImport) return MarkCell(entry.GetImport());
  if (column == kDate) return DayCellOfFile(entry.GetDate(), format);
  if (column == kType) {
    const auto& type = entry.GetActualType();
    return {.text = type != nullptr ? type->GetName() : std::string()};
  }
  return CellOfEntry(entry, column, format);
}

LDGRQIFImportTableViewDataSource::LDGRQIFImportTableViewDataSource(const TableHost& host,
                                                                   Standings standings)
    : host_(host), standings_(std::move(standings)), table_(ReviewColumns()) {
  table_.SetDataSource(this);
  layout_.SetTable(&table_);
  layout_.SetIdentifier("import");
}

LDGRQIFImportTableViewDataSource::~LDGRQIFImportTableViewDataSource() {
  table_.SetDataSource(nullptr);
}

void LDGRQIFImportTableViewDataSource::SetAccountPreferences(
    const std::shared_ptr<LDGRAccountPreferences>& preferences) {
  for (const TableColumn& column : table_.HiddenColumns()) table_.ShowColumn(column.identifier);
  std::size_t place = 0;
  for (const TableColumn& column : ReviewColumns()) {
    table_.MoveColumn(*table_.ColumnWithIdentifier(column.identifier), place);
    table_.SetColumnWidth(place++, column.width);
  }
  layout_.SetPreferences(preferences);
  if (preferences == nullptr) return;
  if (preferences->ExistingTable(layout_.Identifier())) layout_.PlaceStoredColumns();
  const auto hidden = preferences->GetHiddenColumnsForTableIdentifier("entry");
  if (!hidden) return;
  for (const plist::Value& each : *hidden) {
    const auto identifier = each.DictionaryValue().Get("identifier").StringValue();
    const auto index = table_.ColumnWithIdentifier(identifier);
    if (index && identifier != kImport) table_.HideColumn(*index, *index);
  }
}

void LDGRQIFImportTableViewDataSource::StoreColumns() const {
  const auto& preferences = layout_.Preferences();
  if (preferences == nullptr) return;
  std::vector<TableColumn> first = ReviewColumns();
  std::erase_if(first, [this](const TableColumn& column) {
    return !table_.ColumnWithIdentifier(column.identifier);
  });
  const bool is_as_first =
      std::ranges::equal(first, table_.Columns(), [](const TableColumn& a, const TableColumn& b) {
        return a.identifier == b.identifier && a.width == b.width;
      });
  if (is_as_first && !preferences->ExistingTable(layout_.Identifier())) return;
  std::vector<LiveColumn> columns;
  for (const TableColumn& each : table_.Columns()) columns.push_back({each.identifier, each.width});
  preferences->SetColumns(ColumnRecords(columns), layout_.Identifier());
}

void LDGRQIFImportTableViewDataSource::SetEntries(QifImportEntryList entries) {
  sort_column_.clear();
  sorts_descending_ = false;
  ShowSortColumn();
  const LDGRQIFImportEntry* const first = entries.empty() ? nullptr : entries.front().get();
  Take(std::move(entries), first);
}

void LDGRQIFImportTableViewDataSource::AddEntry(std::shared_ptr<LDGRQIFImportEntry> entry) {
  QifImportEntryList entries = entries_;
  entries.push_back(std::move(entry));
  Take(std::move(entries), GetSelectedEntry().get());
}

void LDGRQIFImportTableViewDataSource::RemoveEntries(const QifImportEntryList& removed) {
  const std::unordered_set<std::shared_ptr<LDGRQIFImportEntry>> gone(removed.begin(),
                                                                     removed.end());
  const auto selected = GetSelectedEntry();
  QifImportEntryList entries;
  std::int32_t place = TableState::kNoRow;
  for (const auto& entry : entries_) {
    if (entry == selected) place = static_cast<std::int32_t>(entries.size());
    if (!gone.contains(entry)) entries.push_back(entry);
  }
  place = std::min(place, static_cast<std::int32_t>(entries.size()) - 1);
  const auto next = RecordOfRow(entries, place);
  Take(std::move(entries), next.get());
}

void LDGRQIFImportTableViewDataSource::SelectRow(std::int32_t row) {
  table_.SelectRow(RowToEntry(row) != nullptr ? row : TableState::kNoRow);
}

void LDGRQIFImportTableViewDataSource::Take(QifImportEntryList entries,
                                            const LDGRQIFImportEntry* selected) {
  const RowsChange change = ChangeOfRows(entries_, entries);
  entries_ = std::move(entries);
  table_.TakeRows(change, EntryToRow(selected).value_or(TableState::kNoRow));
}

void LDGRQIFImportTableViewDataSource::ClickedTableColumn(std::string_view identifier) {
  SortByColumnIdentifier(identifier, identifier == sort_column_ && !sorts_descending_);
}

void LDGRQIFImportTableViewDataSource::SortByColumnIdentifier(std::string_view identifier,
                                                              bool descending) {
  QifImportEntryList sorted = entries_;
  if (!Sort(sorted, identifier, descending)) return;
  sort_column_ = identifier;
  sorts_descending_ = descending;
  ShowSortColumn();
  Take(std::move(sorted), GetSelectedEntry().get());
}

bool LDGRQIFImportTableViewDataSource::Sort(QifImportEntryList& entries, std::string_view column,
                                            bool descending) const {
  if (column == kMatch) {
    // Each is looked for once.
    std::vector<std::pair<ReviewStanding, std::shared_ptr<Entry>>> standings;
    standings.reserve(entries.size());
    for (auto& each : entries) standings.emplace_back(standings_(*each), std::move(each));
    std::stable_sort(standings.begin(), standings.end(),
                     [descending](const auto& a, const auto& b) {
                       if (a.first != b.first) return (a.first < b.first) != descending;
                       return (a.second->GetNumber() < b.second->GetNumber()) != descending;
                     });
    for (std::size_t i = 0; i < entries.size(); ++i) entries[i] = std::move(standings[i].second);
    return true;
  }
  const auto* const order = std::ranges::find(kOrders, column, &ColumnOrder::identifier);
  if (order == kOrders.end()) return false;
  // The reversed comparisons are exact mirrors.
  const int wanted = descending ? 1 : -1;
  std::stable_sort(entries.begin(), entries.end(),
                   [&](const auto& a, const auto& b) { return order->compare(*a, *b) == wanted; });
  return true;
}

void LDGRQIFImportTableViewDataSource::ShowSortColumn() {
  const bool is_shown = table_.ColumnWithIdentifier(sort_column_).has_value();
  table_.SetIndicator(is_shown ? sort_column_ : "", is_shown && sorts_descending_);
}

TableCell LDGRQIFImportTableViewDataSource::tableView(std::string_view column,
                                                      std::size_t row) const {
  if (row >= entries_.size()) return {};
  return CellOfReviewed(*entries_[row], column, {date_format_, host_.preferences()});
}

RowLook LDGRQIFImportTableViewDataSource::LookOfRow(std::size_t row) const {
  if (row >= entries_.size()) return {};
  return LookOfEntry(*entries_[row], host_.preferences(), TodaysDateNumber());
}

std::string LDGRQIFImportTableViewDataSource::SpeakableRow(std::size_t row) const {
  if (row >= entries_.size()) return {};
  return entries_[row]->asSpeakableString();
}

}  // namespace tallyfold

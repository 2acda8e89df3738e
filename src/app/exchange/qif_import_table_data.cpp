#include "app/exchange/qif_import_table_data.h"

#include <algorithm>
#include <array>
#include <utility>

#include "model/date_format.h"
#include "model/date_number.h"

namespace tallyfold {
namespace {

using Entry = LDGRQIFImportEntry;

template <auto Compare>
int By(const Entry& a, const Entry& b) {
  return (a.*Compare)(b);
}

struct ReviewColumn {
  std::string_view identifier;
  std::string_view title;  // English key
  int (*compare)(const Entry& a, const Entry& b);
};

constexpr std::string_view kImport = "import";
constexpr std::string_view kCheckMark = "\u2713";

constexpr std::array kColumns = {
    ReviewColumn{kImport, "Import", By<&Entry::ImportIsGreaterThan>},
    ReviewColumn{"date", "Date", By<&Entry::DateIsGreaterThan>},
    ReviewColumn{"check", "Check", By<&Entry::CheckNumberIsGreaterThan>},
    ReviewColumn{"type", "Type", By<&Entry::TypePrimaryDateSecondaryIsGreaterThan>},
    ReviewColumn{"description", "Description", By<&Entry::DescriptionIsGreaterThan>},
    ReviewColumn{"toFrom", "To/From", By<&Entry::ToFromIsGreaterThan>},
    ReviewColumn{"cleared", "Resolved", By<&Entry::ClearedIsGreaterThan>},
    ReviewColumn{"amount", "Amount", By<&Entry::AmountIsGreaterThan>},
};

const ReviewColumn* Find(std::string_view identifier) noexcept {
  const auto* const found = std::ranges::find(kColumns, identifier, &ReviewColumn::identifier);
  return found != kColumns.end() ? found : nullptr;
}

}  // namespace

std::vector<std::string> LDGRQIFImportTableViewDataSource::VisibleTableColumns() const {
  std::vector<std::string> columns;
  for (const ReviewColumn& column : kColumns) columns.emplace_back(column.identifier);
  if (preferences_ == nullptr) return columns;
  const auto hidden = preferences_->GetHiddenColumnsForTableIdentifier("entry");
  if (!hidden) return columns;
  for (const plist::Value& each : *hidden) {
    const auto& identifier = each.DictionaryValue().Get("identifier").StringValue();
    std::erase_if(columns, [&](const std::string& column) {
      return column == identifier && column != kImport;
    });
  }
  return columns;
}

std::string_view LDGRQIFImportTableViewDataSource::TitleOfColumn(
    std::string_view identifier) noexcept {
  const ReviewColumn* const column = Find(identifier);
  return column != nullptr ? column->title : "";
}

void LDGRQIFImportTableViewDataSource::SetEntries(QifImportEntryList entries) {
  entries_ = std::move(entries);
  selected_ = nullptr;
  sort_column_.clear();
  sorts_descending_ = false;
}

void LDGRQIFImportTableViewDataSource::AddEntry(std::shared_ptr<LDGRQIFImportEntry> entry) {
  entries_.push_back(std::move(entry));
}

void LDGRQIFImportTableViewDataSource::RemoveEntry(const LDGRQIFImportEntry* entry) {
  const auto row = EntryToRow(entry);
  if (!row) return;
  const bool was_selected = selected_.get() == entry;
  entries_.erase(entries_.begin() + *row);
  if (was_selected) {
    SelectRow(std::min(*row, static_cast<std::int32_t>(entries_.size()) - 1));
  }
}

std::shared_ptr<LDGRQIFImportEntry> LDGRQIFImportTableViewDataSource::RowToEntry(
    std::int32_t row) const {
  const bool exists = row >= 0 && static_cast<std::size_t>(row) < entries_.size();
  return exists ? entries_[static_cast<std::size_t>(row)] : nullptr;
}

std::optional<std::int32_t> LDGRQIFImportTableViewDataSource::EntryToRow(
    const LDGRQIFImportEntry* entry) const {
  const auto found =
      std::ranges::find(entries_, entry, [](const auto& other) { return other.get(); });
  if (entry == nullptr || found == entries_.end()) return std::nullopt;
  return static_cast<std::int32_t>(found - entries_.begin());
}

void LDGRQIFImportTableViewDataSource::ClickedTableColumn(std::string_view identifier) {
  SortByColumnIdentifier(identifier, identifier == sort_column_ && !sorts_descending_);
}

void LDGRQIFImportTableViewDataSource::SortByColumnIdentifier(std::string_view identifier,
                                                              bool descending) {
  const ReviewColumn* const column = Find(identifier);
  if (column == nullptr) return;
  // The reversed comparisons are exact mirrors.
  const int wanted = descending ? 1 : -1;
  std::stable_sort(entries_.begin(), entries_.end(),
                   [&](const auto& a, const auto& b) { return column->compare(*a, *b) == wanted; });
  sort_column_ = column->identifier;
  sorts_descending_ = descending;
}

TableCell LDGRQIFImportTableViewDataSource::tableView(std::string_view column,
                                                      std::size_t row) const {
  if (row >= entries_.size()) return {};
  const Entry& entry = *entries_[row];
  const auto mark = [](bool set) { return TableCell{std::string(set ? kCheckMark : "")}; };
  if (column == kImport) return mark(entry.GetImport());
  if (column == "date") {
    return {FormatDate(DateNumberToNSCalendarDate(entry.GetDate()), date_format_)};
  }
  if (column == "check") {
    if (!entry.IsCheck()) return {};
    return {std::to_string(entry.GetCheckNumber()), TableCell::Alignment::Right};
  }
  if (column == "type") {
    const auto& type = entry.GetActualType();
    return {type != nullptr ? type->GetName() : std::string()};
  }
  if (column == "description") return {entry.GetDescription()};
  if (column == "toFrom") return {entry.GetToFrom()};
  if (column == "cleared") return mark(entry.GetCleared());
  if (column == "amount") return {entry.GetAmount(), TableCell::Alignment::Right};
  return {};
}

}  // namespace tallyfold

#include "registers/table_layout.h"

#include <algorithm>
#include <utility>

#include "plist/value.h"

namespace tallyfold {
namespace {

std::string_view IdentifierOf(const plist::Value& column) {
  return column.DictionaryValue().Get("identifier").StringValue();
}

// None where the table's own width stays.
std::optional<std::int32_t> WidthOf(const plist::Value& column) {
  const plist::Dictionary stored = column.DictionaryValue();
  const plist::Value& width = stored.Get("width");
  // A text counts by the number it begins with.
  const bool is_number = width.IsNumber() || width.StringValue().find_first_of("0123456789") == 0;
  if (!is_number || width.IntegerValue() < 0) return std::nullopt;
  return width.IntegerValue();
}

}  // namespace

void TableLayout::SetIdentifier(std::optional<std::string_view> identifier) {
  if (identifier) table_identifier_ = *identifier;
}

void TableLayout::SetPreferences(std::shared_ptr<LDGRAccountPreferences> preferences) noexcept {
  preferences_ = std::move(preferences);
}

bool TableLayout::Apply() {
  if (table_ == nullptr || preferences_ == nullptr) return false;
  table_->ClearIndicatorImages();
  for (const TableColumn& hidden : table_->HiddenColumns()) table_->ShowColumn(hidden.identifier);
  PlaceStoredColumns();
  HideStoredColumns();
  return true;
}

std::int32_t TableLayout::StoredRow() const {
  if (preferences_ == nullptr) return 0;
  return std::max(preferences_->GetSelectedRowForTableIdentifier(table_identifier_), 0);
}

void TableLayout::StoreRow(std::int32_t row) {
  if (preferences_ != nullptr) preferences_->SetSelectedRow(row, table_identifier_);
}

std::string TableLayout::SortColumn() const {
  if (preferences_ == nullptr) return "";
  return preferences_->GetSelectedColumnIdentifierForTableIdentifier(table_identifier_);
}

bool TableLayout::SortsDescending() const {
  return preferences_ != nullptr &&
         preferences_->GetSortDescendingForTableIdentifier(table_identifier_);
}

bool TableLayout::StoreOrder(std::string_view column, bool descending) {
  if (preferences_ == nullptr) return false;
  preferences_->SetSortDescending(descending, table_identifier_);
  preferences_->SetSelectedColumnIdentifier(column, table_identifier_);
  return true;
}

void TableLayout::PlaceStoredColumns() const {
  if (table_ == nullptr || preferences_ == nullptr) return;
  const auto columns = preferences_->GetColumnsForTableIdentifier(table_identifier_);
  if (!columns) return;
  for (const plist::Value& column : *columns) {
    const auto index = table_->ColumnWithIdentifier(IdentifierOf(column));
    const auto width = WidthOf(column);
    if (index && width) table_->SetColumnWidth(*index, *width);
  }
  std::size_t place = 0;
  for (const plist::Value& column : *columns) {
    if (const auto index = table_->ColumnWithIdentifier(IdentifierOf(column))) {
      table_->MoveColumn(*index, place++);
    }
  }
}

void TableLayout::HideStoredColumns() const {
  const auto columns = preferences_->GetHiddenColumnsForTableIdentifier(table_identifier_);
  if (!columns) return;
  for (const plist::Value& column : *columns) {
    const plist::Dictionary stored = column.DictionaryValue();
    const auto index = table_->ColumnWithIdentifier(IdentifierOf(column));
    if (!index) continue;
    if (const auto width = WidthOf(column)) table_->SetColumnWidth(*index, *width);
    const std::int32_t place = stored.Get("lastIndex").IntegerValue();
    table_->HideColumn(*index, static_cast<std::size_t>(std::max(place, 0)));
  }
}

void TableLayout::ShowSortColumn(const std::string& column) {
  if (table_ == nullptr) return;
  if (preferences_ != nullptr && !column.empty()) {
    preferences_->SetSelectedColumnIdentifier(column, table_identifier_);
  }
  if (table_->ColumnWithIdentifier(column)) {
    table_->SetIndicator(column, SortsDescending());
  } else {
    table_->ClearIndicatorImages();
  }
}

bool TableLayout::HideColumn(std::string_view identifier) {
  if (table_ == nullptr || preferences_ == nullptr) return false;
  const auto index = table_->ColumnWithIdentifier(identifier);
  if (!index) return false;
  plist::Dictionary stored;
  stored.Set("identifier", identifier);
  stored.Set("width", plist::Value(table_->Columns()[*index].width).IntegerValue());
  stored.Set("show", false);
  stored.Set("lastIndex", static_cast<std::int32_t>(*index));
  if (!table_->HideColumn(*index, *index)) return false;
  plist::Array hidden =
      preferences_->GetHiddenColumnsForTableIdentifier(table_identifier_).value_or(plist::Array());
  hidden.Append(stored);
  preferences_->SetHiddenColumns(hidden, table_identifier_);
  return true;
}

bool TableLayout::ShowColumn(std::string_view identifier) {
  if (table_ == nullptr || preferences_ == nullptr || !table_->ShowColumn(identifier)) {
    return false;
  }
  plist::Array others;
  if (const auto hidden = preferences_->GetHiddenColumnsForTableIdentifier(table_identifier_)) {
    for (const plist::Value& column : *hidden) {
      if (IdentifierOf(column) == identifier) continue;
      plist::Dictionary other = column.DictionaryValue();
      if (const auto place = table_->PlaceOfHiddenColumn(IdentifierOf(column))) {
        other.Set("lastIndex", static_cast<std::int32_t>(*place));
      }
      others.Append(std::move(other));
    }
  }
  preferences_->SetHiddenColumns(others, table_identifier_);
  return true;
}

}  // namespace tallyfold

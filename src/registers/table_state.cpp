#include "registers/table_state.h"

#include <algorithm>
#include <utility>

namespace tallyfold {
namespace {

using Columns = std::vector<TableColumn>;

Columns::iterator Place(Columns& columns, std::size_t index) {
  return columns.begin() + static_cast<std::ptrdiff_t>(index);
}

}  // namespace

TableState::TableState(std::vector<TableColumn> columns, Observer* observer)
    : observer_(observer), columns_(std::move(columns)) {}

std::optional<std::size_t> TableState::ColumnWithIdentifier(
    std::string_view identifier) const noexcept {
  const auto found = std::ranges::find(columns_, identifier, &TableColumn::identifier);
  if (found == columns_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - columns_.begin());
}

void TableState::MoveColumn(std::size_t from, std::size_t to) {
  if (from >= columns_.size()) return;
  to = std::min(to, columns_.size() - 1);
  if (from == to) return;
  TableColumn column = std::move(columns_[from]);
  columns_.erase(Place(columns_, from));
  columns_.insert(Place(columns_, to), std::move(column));
  Tell(Change::Columns);
}

void TableState::SetColumnWidth(std::size_t index, double width) {
  if (index >= columns_.size() || columns_[index].width == width) return;
  columns_[index].width = width;
  Tell(Change::Columns);
}

std::vector<TableColumn> TableState::HiddenColumns() const {
  std::vector<TableColumn> columns;
  for (const HiddenColumn& hidden : hidden_) columns.push_back(hidden.column);
  return columns;
}

bool TableState::HideColumn(std::size_t index, std::size_t place) {
  if (index >= columns_.size() || columns_.size() == 1) return false;
  hidden_.push_back({std::move(columns_[index]), place});
  columns_.erase(Place(columns_, index));
  Tell(Change::Columns);
  return true;
}

std::vector<TableState::HiddenColumn>::const_iterator TableState::FindHidden(
    std::string_view identifier) const {
  return std::ranges::find_if(hidden_, [identifier](const HiddenColumn& hidden) {
    return hidden.column.identifier == identifier;
  });
}

std::optional<std::size_t> TableState::PlaceOfHiddenColumn(std::string_view identifier) const {
  const auto found = FindHidden(identifier);
  if (found == hidden_.end()) return std::nullopt;
  return found->place;
}

bool TableState::ShowColumn(std::string_view identifier) {
  const auto found = FindHidden(identifier);
  if (found == hidden_.end()) return false;
  const auto index = found - hidden_.begin();
  HiddenColumn shown = std::move(hidden_[static_cast<std::size_t>(index)]);
  hidden_.erase(found);
  // Those hidden later now count this one, and it no more counts those of them before it.
  for (auto later = hidden_.begin() + index; later != hidden_.end(); ++later) {
    if (later->place >= shown.place) {
      ++later->place;
    } else {
      --shown.place;
    }
  }
  const std::size_t place = std::min(shown.place, columns_.size());
  columns_.insert(Place(columns_, place), std::move(shown.column));
  Tell(Change::Columns);
  return true;
}

void TableState::ClearIndicatorImages() {
  SetHighlightedColumn("", "");
}

void TableState::SetHighlightedColumn(std::string_view identifier, std::string_view image) {
  if (highlighted_ == identifier && image_ == image) return;
  highlighted_ = identifier;
  image_ = image;
  Tell(Change::Columns);
}

void TableState::SelectRow(std::int32_t row) {
  row = std::max(row, kNoRow);
  if (selected_row_ == row) return;
  selected_row_ = row;
  Tell(Change::SelectedRow);
}

void TableState::ScrollRowToVisible(std::int32_t row) {
  if (row < 0) return;
  scrolled_row_ = row;
  Tell(Change::ScrolledRow);
}

void TableState::ReloadData() {
  Tell(Change::Rows);
}

void TableState::Tell(Change change) {
  if (observer_ != nullptr) observer_->TableChanged(*this, change);
}

}  // namespace tallyfold

#include "registers/table_state.h"

#include <algorithm>
#include <utility>

#include "platform/ambient.h"

namespace tallyfold {
namespace {

using Columns = std::vector<TableColumn>;

Columns::iterator Place(Columns& columns, std::size_t index) {
  return columns.begin() + static_cast<std::ptrdiff_t>(index);
}

}  // namespace

std::string TitleOf(const TableColumn& column) {
  return LocalizedText(column.title);
}

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

void TableState::SetIndicator(std::string_view identifier, bool descending) {
  if (highlighted_ == identifier && indicates_descending_ == descending) return;
  highlighted_ = identifier;
  indicates_descending_ = descending;
  Tell(Change::Columns);
}

std::string_view TableState::IndicatorImage() const noexcept {
  if (highlighted_.empty()) return "";
  return indicates_descending_ ? "tableView_DownArrow.tif" : "tableView_UpArrow.tif";
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
  const std::size_t count = RowsOfSource();
  TellRows(count == 0 ? RowsChange{} : RowsChange{RowsChange::Kind::Changed, 0, count - 1});
}

void TableState::TakeRows(const RowsChange& change, std::int32_t selected_row) {
  selected_row = std::max(selected_row, kNoRow);
  const bool is_selection_new = std::exchange(selected_row_, selected_row) != selected_row;
  TellRows(change);
  if (is_selection_new) Tell(Change::SelectedRow);
}

std::size_t TableState::RowsOfSource() const {
  return source_ != nullptr ? source_->numberOfRowsInTableView() : 0;
}

void TableState::Tell(Change change) {
  for (Observer* observer : {observer_, shown_by_}) {
    if (observer != nullptr) observer->TableChanged(*this, change);
  }
}

// A source that hides its rows, or shows them again, makes of every change one of all rows.
void TableState::TellRows(const RowsChange& change) {
  const std::size_t before = std::exchange(row_count_, RowsOfSource());
  const std::size_t named = change.last - change.first + 1;
  const std::size_t inserted = change.kind == RowsChange::Kind::Inserted ? named : 0;
  const std::size_t removed = change.kind == RowsChange::Kind::Removed ? named : 0;
  const bool fits =
      before + inserted == row_count_ + removed && change.last < std::max(before, row_count_);
  for (Observer* observer : {observer_, shown_by_}) {
    if (observer != nullptr) observer->RowsChanged(*this, fits ? change : RowsChange{});
  }
}

}  // namespace tallyfold

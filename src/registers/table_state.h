#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "registers/rows_change.h"
#include "registers/table_data_source.h"

namespace tallyfold {

// A table of the main window as data: its columns, its selected row and the sort indicator. A front
// end draws it, tells it what the user does with columns, and hears of what changes.
class TableState {
 public:
  static constexpr std::int32_t kNoRow = -1;

  enum class Change : std::uint8_t { Columns, SelectedRow, ScrolledRow };
  // Hears of a change after it: the table and its data source are what they are to be. The selected
  // row that changed with the rows is told after them.
  class Observer {
   public:
    virtual ~Observer() = default;
    virtual void TableChanged(const TableState& table, Change change) = 0;
    virtual void RowsChanged(const TableState& table, const RowsChange& change) = 0;
  };

  // The columns the table has at first, all of them shown. The observer, if any, must outlive the
  // table.
  explicit TableState(std::vector<TableColumn> columns, Observer* observer = nullptr);
  TableState(const TableState&) = delete;
  TableState& operator=(const TableState&) = delete;

  // Who draws the table hears of it too, after the observer; null for nobody. It must outlive its
  // stay here.
  void SetShownBy(Observer* observer) noexcept { shown_by_ = observer; }

  // Null for none; it must outlive its stay here.
  void SetDataSource(const TableDataSource* source) noexcept { source_ = source; }
  [[nodiscard]] const TableDataSource* DataSource() const noexcept { return source_; }

  // --- Columns ----------------------------------------------------------------------------------
  // The columns shown, in display order, and those that are hidden.
  [[nodiscard]] const std::vector<TableColumn>& Columns() const noexcept { return columns_; }
  [[nodiscard]] std::vector<TableColumn> HiddenColumns() const;
  // Index among the columns shown.
  [[nodiscard]] std::optional<std::size_t> ColumnWithIdentifier(
      std::string_view identifier) const noexcept;
  // An index beyond the last column, here and below, changes nothing; as a target it is the last.
  void MoveColumn(std::size_t from, std::size_t to);
  void SetColumnWidth(std::size_t index, double width);
  // Hides a column, whose place was `place` before: an index among the columns shown then. False,
  // and nothing changed, for the only column that is left.
  bool HideColumn(std::size_t index, std::size_t place);
  // The place of a hidden column as if those hidden after it were still hidden later.
  [[nodiscard]] std::optional<std::size_t> PlaceOfHiddenColumn(std::string_view identifier) const;
  // The column comes back to its place, in whatever order columns were hidden and are shown. False
  // when there is no such hidden column.
  bool ShowColumn(std::string_view identifier);

  // --- The sort indicator -----------------------------------------------------------------------
  // At most one column is highlighted and has an image.
  void ClearIndicatorImages() { SetIndicator("", false); }
  // Of the column that the rows are sorted by.
  void SetIndicator(std::string_view identifier, bool descending);
  // "" for none.
  [[nodiscard]] const std::string& HighlightedColumn() const noexcept { return highlighted_; }
  [[nodiscard]] bool IndicatesDescending() const noexcept { return indicates_descending_; }
  // "" for none.
  [[nodiscard]] std::string_view IndicatorImage() const noexcept;

  // --- Rows -------------------------------------------------------------------------------------
  [[nodiscard]] std::int32_t SelectedRow() const noexcept { return selected_row_; }
  // A negative row selects none.
  void SelectRow(std::int32_t row);
  // The row that was last to be made visible; kNoRow before the first.
  [[nodiscard]] std::int32_t ScrolledRow() const noexcept { return scrolled_row_; }
  void ScrollRowToVisible(std::int32_t row);
  // The number of rows and what they show may have changed.
  void ReloadData();
  // The data source has other rows, of which `selected_row` is selected; a negative one selects
  // none.
  void TakeRows(const RowsChange& change, std::int32_t selected_row);

 private:
  struct HiddenColumn {
    TableColumn column;
    std::size_t place;
  };

  [[nodiscard]] std::vector<HiddenColumn>::const_iterator FindHidden(
      std::string_view identifier) const;
  [[nodiscard]] std::size_t RowsOfSource() const;
  void Tell(Change change);
  void TellRows(const RowsChange& change);

  Observer* observer_;
  Observer* shown_by_ = nullptr;
  const TableDataSource* source_ = nullptr;
  std::vector<TableColumn> columns_;
  // In the order in which they were hidden; a place counts those that were hidden later.
  std::vector<HiddenColumn> hidden_;
  std::string highlighted_;
  bool indicates_descending_ = false;
  std::size_t row_count_ = 0;  // as it was told last
  std::int32_t selected_row_ = kNoRow;
  std::int32_t scrolled_row_ = kNoRow;
};

}  // namespace tallyfold

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tallyfold {

// What a cell shows. Amounts are numbers, which the table formats.
struct TableCell {
  enum class Alignment : std::uint8_t { Natural, Right };

  std::variant<std::string, double> value;
  Alignment alignment = Alignment::Natural;

  friend bool operator==(const TableCell&, const TableCell&) = default;
};

// Gives a table its rows. Only rows that the table shows are asked for.
class TableDataSource {
 public:
  virtual ~TableDataSource() = default;
  [[nodiscard]] virtual std::size_t numberOfRowsInTableView() const = 0;
  [[nodiscard]] virtual TableCell tableView(std::string_view column, std::size_t row) const = 0;
};

struct TableColumn {
  std::string identifier;
  double width = 0.0;  // in points

  friend bool operator==(const TableColumn&, const TableColumn&) = default;
};

// A table of the main window as data: its columns, its selected row and the sort indicator. A front
// end draws it, tells it what the user does with columns, and hears of what changes.
class TableState {
 public:
  static constexpr std::int32_t kNoRow = -1;

  enum class Change : std::uint8_t { Columns, Rows, SelectedRow, ScrolledRow };
  class Observer {
   public:
    virtual ~Observer() = default;
    virtual void TableChanged(const TableState& table, Change change) = 0;
  };

  // The columns the table has at first, all of them shown. The observer, if any, must outlive the
  // table.
  explicit TableState(std::vector<TableColumn> columns, Observer* observer = nullptr);
  TableState(const TableState&) = delete;
  TableState& operator=(const TableState&) = delete;

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
  void ClearIndicatorImages();
  void SetHighlightedColumn(std::string_view identifier, std::string_view image);
  // "" for none.
  [[nodiscard]] const std::string& HighlightedColumn() const noexcept { return highlighted_; }
  [[nodiscard]] const std::string& IndicatorImage() const noexcept { return image_; }

  // --- Rows -------------------------------------------------------------------------------------
  [[nodiscard]] std::int32_t SelectedRow() const noexcept { return selected_row_; }
  // A negative row selects none.
  void SelectRow(std::int32_t row);
  // The row that was last to be made visible; kNoRow before the first.
  [[nodiscard]] std::int32_t ScrolledRow() const noexcept { return scrolled_row_; }
  void ScrollRowToVisible(std::int32_t row);
  // The number of rows and what they show may have changed.
  void ReloadData();

 private:
  struct HiddenColumn {
    TableColumn column;
    std::size_t place;
  };

  [[nodiscard]] std::vector<HiddenColumn>::const_iterator FindHidden(
      std::string_view identifier) const;
  void Tell(Change change);

  Observer* observer_;
  const TableDataSource* source_ = nullptr;
  std::vector<TableColumn> columns_;
  // In the order in which they were hidden; a place counts those that were hidden later.
  std::vector<HiddenColumn> hidden_;
  std::string highlighted_;
  std::string image_;
  std::int32_t selected_row_ = kNoRow;
  std::int32_t scrolled_row_ = kNoRow;
};

}  // namespace tallyfold

#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/register/cell_look.h"
#include "desktop/register/table_look.h"
#include "registers/table_state.h"

namespace tallyfold::desktop {

// What a table shows beside the texts of its cells. Told by whoever knows the records behind the
// rows; asked for rows that exist, each time they are drawn.
class RowDetails {
 public:
  virtual ~RowDetails() = default;
  // Adds glyphs, words and marks to what the cell shows already.
  virtual void AddTo(CellLook& look, std::string_view column, std::size_t row) const = 0;
  // "" for none.
  [[nodiscard]] virtual QString ToolTipOf(std::string_view column, std::size_t row) const = 0;
};

// The rows of a table of the core for a view of the toolkit: any number of them, each cell made
// when it is asked for. Its columns are all that the table has, shown or hidden, in an order of
// their own that stays; where they stand is the header's business.
class RowModel final : public QAbstractTableModel {
  Q_OBJECT

 public:
  // The table must outlive this.
  explicit RowModel(const TableState& table, QObject* parent = nullptr);

  // Null for none; it must outlive its stay here.
  void SetDetails(const RowDetails* details) noexcept { details_ = details; }
  void SetLook(const TableLook& look) { look_ = look; }
  [[nodiscard]] const TableLook& Look() const noexcept { return look_; }
  // Check boxes in place of ticks.
  void SetMarksAreBoxes(bool are_boxes) noexcept { marks_are_boxes_ = are_boxes; }

  // Takes up what became of the rows, which are as they are to be already.
  void Take(const RowsChange& change);
  // Takes the columns anew where the table has others than before; true where it did.
  bool TakeColumns();

  // The place of a column here; -1 for none.
  [[nodiscard]] int IndexOf(std::string_view identifier) const noexcept;
  [[nodiscard]] const TableColumn& ColumnAt(int index) const {
    return columns_[static_cast<std::size_t>(index)];
  }
  // Of a cell that exists.
  [[nodiscard]] TableCell CellAt(int row, int column) const;
  [[nodiscard]] CellLook LookAt(int row, int column) const;
  [[nodiscard]] QString ToolTipAt(int row, int column) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  // Where a row as the views know it stands in the source; -1 for one that is gone.
  [[nodiscard]] int RowOfSource(const QModelIndex& index) const;
  void Reset();

  const TableState& table_;
  const RowDetails* details_ = nullptr;
  std::vector<TableColumn> columns_;
  TableLook look_;
  // As the views know it; the table may be ahead of them.
  int row_count_ = 0;
  // While views are being told of rows that came or went, they still count as before: from the row
  // `first` on, `gone` rows are no more and those behind them stand `by` rows further on.
  struct Shift {
    int first = 0;
    int gone = 0;
    int by = 0;
  };
  Shift until_told_;
  bool marks_are_boxes_ = false;
};

}  // namespace tallyfold::desktop

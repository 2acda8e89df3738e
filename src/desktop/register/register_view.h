#pragma once

#include <QTableView>
#include <optional>
#include <vector>

#include "desktop/register/cell_delegate.h"
#include "desktop/register/row_model.h"
#include "desktop/register/row_selection.h"
#include "desktop/register/table_look.h"
#include "desktop/register/type_ahead.h"
#include "registers/table_state.h"

class QMenu;

namespace tallyfold::desktop {

class Header;

// A table of the core: a register, the schedules, the accounts, the review of an import. It draws
// the rows, follows what becomes of them, lays out the columns and tells what the user does with
// both; what comes of that is up to its owner. Rows are selected by its own means, in stretches;
// the toolkit's selection follows for assistive technology as far as that is cheap.
class RegisterView final : public QTableView, public RowStates, private TableState::Observer {
  Q_OBJECT

 public:
  // `table` must outlive this; it has this as who shows it.
  RegisterView(TableState& table, QWidget* parent);
  ~RegisterView() override;

  // How everything is drawn; to be called whenever the preferences may have changed.
  void SetLook(const TableLook& look);
  // See RowModel.
  void SetDetails(const RowDetails* details);
  void SetMarksAreBoxes(bool are_boxes);
  // For a list beside the page: on the ground of the bars, without rules, the selected row a
  // rounded box in demi-bold, below a heading as tall as a bar. For good.
  void MakeList();
  // Only one row at a time; several by default.
  void SetSelectsOneRow(bool only_one) noexcept { selects_one_row_ = only_one; }
  // No rule under rows whose month ends; there by default where the rows are sorted by a day.
  void SetHasMonthRules(bool has_rules);
  // The columns as they are before anybody changes them: one that is as wide as that makes room for
  // a title that needs more.
  void SetFirstColumns(std::vector<TableColumn> columns);
  // The widths follow what the cells of a list need, which may have changed with the amounts.
  void FitColumns();

  // --- Rows
  // -----------------------------------------------------------------------------------------
  [[nodiscard]] const RowSelection& SelectedRows() const noexcept { return selection_; }
  // -1 for none.
  [[nodiscard]] int CurrentRow() const { return currentIndex().row(); }
  // Selects rows for the user, the last of them the current one; those that there are not are left
  // out.
  void SelectForUser(std::vector<int> rows);
  void ScrollToRow(int row);
  // With what can be done with the columns.
  void FillColumnsMenu(QMenu& menu);
  [[nodiscard]] const RowModel& Rows() const noexcept { return *model_; }
  [[nodiscard]] RowState StateOf(int row) const override;

 public slots:
  void selectAll() override;
  // The selected rows, as text and as a table.
  void copy() const;

 signals:
  // The user made this row the current one.
  void RowSelected(int row);
  // Other rows are selected than before, by the user or because rows came or went. Nobody may order
  // operations on hearing this.
  void SelectionChanged();
  // A double click or Return.
  void RowActivated(int row);
  // A click on a mark, which leaves the selection, or Space on the current row.
  void MarkWanted(int row, const QString& column);
  void MarkKeyPressed(int row);
  void RemoveWanted();
  // The menu of the current row, at a place of the screen.
  void RowMenuWanted(const QPoint& place);
  void HeaderClicked(const QString& column);
  void ColumnHideWanted(const QString& column);
  void ColumnShowWanted(const QString& column);
  // The user is done with the rows.
  void Escaped();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void initViewItemOption(QStyleOptionViewItem* option) const override;
  bool viewportEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyboardSearch(const QString& typed) override;

 private:
  void TableChanged(const TableState& table, TableState::Change change) override;
  void RowsChanged(const TableState& table, const RowsChange& change) override;

  void SetUpHeader();
  void ShowColumns();
  // The widest cell of the column.
  [[nodiscard]] int WidestCell(int section) const;
  void ShowCurrentRow();
  void TakeDraggedWidth(int section, int width);
  void TakeMovedColumn(int section, int from, int to);
  [[nodiscard]] std::vector<int> ShownColumns() const;

  void PaintGround(QPainter& painter, int first, int last) const;
  void PaintRules(QPainter& painter, int first, int last) const;
  void PaintBox(QPainter& painter, int row) const;
  [[nodiscard]] QRect RowRect(int row) const;
  [[nodiscard]] bool EndsMonth(int row, int column) const;
  void UpdateRow(int row);
  void SetHoveredRow(int row);

  // What the user does.
  enum class Reach : std::uint8_t { Only, Range, Toggle };
  void GoTo(int row, Reach reach);
  bool MoveByKey(const QKeyEvent& event);
  void TypeLetters(const QString& letters, std::uint64_t time);
  [[nodiscard]] bool IsMarkAt(const QPoint& place) const;
  void ShowToolTip(const QPoint& place, const QPoint& on_screen) const;
  void ShowThumbToolTip() const;
  void MakeCurrent(int row);
  void TellSelection();

  TableState& table_;
  RowModel* model_;
  Header* header_;
  CellDelegate* delegate_;
  QWidget* cap_;
  std::vector<TableColumn> first_columns_;
  RowSelection selection_;
  TypedLetters typed_;
  int anchor_ = -1;
  int hovered_ = -1;
  int pressed_mark_ = -1;
  bool selects_one_row_ = false;
  bool has_month_rules_ = true;
  bool is_list_ = false;
  // While the columns are laid out the header's news are not the user's.
  bool is_laying_out_ = false;
};

}  // namespace tallyfold::desktop

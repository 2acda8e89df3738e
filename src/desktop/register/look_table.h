#pragma once

#include <QStringList>
#include <QTableView>
#include <functional>
#include <set>
#include <utility>
#include <vector>

#include "desktop/register/cell_delegate.h"
#include "desktop/register/cell_look.h"

namespace tallyfold::desktop {

// A small table of cells that somebody has made already, with one row chosen or none: a list of
// choices with what speaks for each. Cells of some columns may be typed into or chosen for.
class LookTable final : public QTableView, public RowStates {
  Q_OBJECT

 public:
  using Row = std::vector<CellLook>;
  struct Column {
    QString title;
    // Least width; the widest cell decides beyond it.
    int width = 0;
    CellLook::Align align = CellLook::Align::Leading;
    bool takes_rest = false;
    // Its texts may be edited in place; `choices` makes a pop-up of that, in which the cell's text
    // is chosen.
    bool is_edited = false;
    QStringList choices = {};
  };

  explicit LookTable(QWidget* parent);

  void SetColumns(std::vector<Column> columns);
  // Without a row of titles where all are "".
  void SetRows(std::vector<Row> rows);
  // Rows that are made when they come into sight, for a table of any length.
  using RowMaker = std::function<Row(int row)>;
  void SetRows(int count, RowMaker make);
  // Columns keep the widths that they were given, and those that do not fit are scrolled to;
  // without it they are as wide as their cells, and the table as wide as its columns.
  void SetScrollsSideways();
  // -1 for none; tells nobody.
  void ShowChosen(int row);
  // A stronger rule below that row; nobody else may be told of it.
  void SetGroupEnds(std::set<int> rows) { group_ends_ = std::move(rows); }
  // Opens the editor of a cell, which must be there and in a column that is edited.
  void EditCell(int row, int column);
  // Takes over a text that is still being typed.
  void EndCellEditing();
  // The font of the rows, and so their height, and whether texts that are cut end in an ellipsis.
  void SetRowFont(const QFont& font, bool uses_ellipses);
  // As tall as so many rows and the titles.
  void SetRowsInSight(int count);
  // In the middle in place of rows; "" for nothing.
  void SetEmptyText(const QString& text);
  [[nodiscard]] RowState StateOf(int row) const override;

 signals:
  void RowChosen(int row);
  // A double click or Return.
  void RowActivated(int row);
  // What the user typed or chose; the cell still shows what it showed.
  void CellEdited(int row, int column, const QString& text);
  // It has the keyboard.
  void Focused();
  // Delete, outside of an editor.
  void RemoveWanted(int row);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void initViewItemOption(QStyleOptionViewItem* option) const override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  class Model;
  class Cells;

  void FitColumns();
  void PaintRow(QPainter& painter, int row) const;
  [[nodiscard]] bool HasEditedColumn() const;
  [[nodiscard]] bool IsCut(const CellLook& look, int column) const;

  Model* model_;
  std::vector<Column> columns_;
  std::set<int> group_ends_;
  QString empty_text_;
  bool is_showing_ = false;
  bool scrolls_sideways_ = false;
};

}  // namespace tallyfold::desktop

#pragma once

#include <QTableView>

#include "desktop/register/cell_delegate.h"

namespace tallyfold::desktop {

// Edits a cell in a line of the window's own.
class EditCells : public CellDelegate {
 public:
  using CellDelegate::CellDelegate;

  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override;
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const override;
  bool eventFilter(QObject* object, QEvent* event) override;
};

// A table of a sheet whose cells are edited in their places: one row chosen, a ring around the cell
// that would be edited, Tab from one such cell to the next.
class EditTable : public QTableView, public RowStates {
  Q_OBJECT

 public:
  // What is typed in an open cell is taken over.
  void EndCellEditing();
  // -1 for none.
  [[nodiscard]] int SelectedRow() const { return currentIndex().row(); }
  [[nodiscard]] RowState StateOf(int row) const override;

 protected:
  explicit EditTable(QWidget* parent);

  // The model and what draws and edits its cells; this owns both.
  void SetUp(QAbstractItemModel* model, EditCells* cells);
  // Of the cell that was refused; invalid for none.
  [[nodiscard]] virtual QModelIndex Refused() const { return {}; }
  [[nodiscard]] bool IsEditable(const QModelIndex& index) const;

  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers held) override;
  // Tab goes on behind the last cell and before the first one to what stands beside the table.
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void initViewItemOption(QStyleOptionViewItem* option) const override;
};

}  // namespace tallyfold::desktop

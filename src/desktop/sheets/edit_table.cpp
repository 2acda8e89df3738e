#include "desktop/sheets/edit_table.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>

#include "desktop/fields/combo_box_cell.h"
#include "desktop/look/colors.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/look/style.h"
#include "desktop/register/table_titles.h"

namespace tallyfold::desktop {

void EditCells::setEditorData(QWidget* editor, const QModelIndex& index) const {
  auto* field = static_cast<QLineEdit*>(editor);
  if (!field->isModified()) field->setText(index.data(Qt::EditRole).toString());
}

void EditCells::setModelData(QWidget* editor, QAbstractItemModel* model,
                             const QModelIndex& index) const {
  // A cell is left by keys that the field does not see.
  if (auto* cell = qobject_cast<LDGRComboBoxCell*>(editor)) cell->TakeCompletion();
  model->setData(index, static_cast<QLineEdit*>(editor)->text(), Qt::EditRole);
}

void EditCells::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                     const QModelIndex&) const {
  editor->setGeometry(option.rect);
}

bool EditCells::eventFilter(QObject* object, QEvent* event) {
  // An open list has its keys before the cell has them, but Tab is both: it takes and goes on.
  auto* cell = qobject_cast<LDGRComboBoxCell*>(object);
  if (cell != nullptr && event->type() == QEvent::KeyPress && cell->IsListOpen()) {
    if (static_cast<const QKeyEvent*>(event)->key() != Qt::Key_Tab) return false;
    cell->TakeOffered();
  }
  return CellDelegate::eventFilter(object, event);
}

EditTable::EditTable(QWidget* parent) : QTableView(parent) {
  setHorizontalHeader(new TableTitles(this));
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(RowHeight(fontMetrics()));
  setShowGrid(false);
  setWordWrap(false);
  setSelectionMode(SingleSelection);
  setSelectionBehavior(SelectRows);
  setTabKeyNavigation(false);
  setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed | SelectedClicked);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(ScrollPerPixel);
}

void EditTable::SetUp(QAbstractItemModel* model, EditCells* cells) {
  setModel(model);
  setItemDelegate(cells);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this] { viewport()->update(); });
}

void EditTable::EndCellEditing() {
  // The field takes its text over when it is left.
  if (state() == EditingState) setFocus();
}

RowState EditTable::StateOf(int row) const {
  return {.is_selected = row == SelectedRow(), .table_has_focus = hasFocus()};
}

bool EditTable::IsEditable(const QModelIndex& index) const {
  return index.isValid() && index.flags().testFlag(Qt::ItemIsEditable);
}

void EditTable::initViewItemOption(QStyleOptionViewItem* option) const {
  QTableView::initViewItemOption(option);
  LeaveSelectionToTable(*option);
}

QModelIndex EditTable::moveCursor(CursorAction action, Qt::KeyboardModifiers held) {
  if (action != MoveNext && action != MovePrevious) return QTableView::moveCursor(action, held);
  const int columns = model()->columnCount();
  const int cells = model()->rowCount() * columns;
  const int step = action == MoveNext ? 1 : -1;
  int cell = currentIndex().row() * columns + currentIndex().column() + step;
  for (; cell >= 0 && cell < cells; cell += step) {
    const QModelIndex index = model()->index(cell / columns, cell % columns);
    if (IsEditable(index)) return index;
  }
  return currentIndex();
}

void EditTable::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  const bool goes_on = hint == QAbstractItemDelegate::EditNextItem;
  const bool goes_back = hint == QAbstractItemDelegate::EditPreviousItem;
  const bool leaves =
      (goes_on || goes_back) && moveCursor(goes_on ? MoveNext : MovePrevious, {}) == currentIndex();
  QTableView::closeEditor(editor, leaves ? QAbstractItemDelegate::NoHint : hint);
  // What is typed next must not take the place of what the last cell holds.
  if (leaves) focusNextPrevChild(goes_on);
}

void EditTable::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  // In a cell it ends that cell, elsewhere it is the sheet's.
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    event->setAccepted(state() == EditingState);
    return;
  }
  if (key == Qt::Key_Escape) return event->ignore();
  QTableView::keyPressEvent(event);
}

void EditTable::paintEvent(QPaintEvent* event) {
  const Colors& colors = ColorsOf(palette());
  const auto line_of = [this](int row) {
    return QRect(0, rowViewportPosition(row), viewport()->width(), rowHeight(row));
  };
  QPainter painter(viewport());
  const int rows = model()->rowCount();
  for (int row = 0; row < rows; ++row) {
    painter.fillRect(line_of(row), colors[StateOf(row).Ground()]);
  }
  painter.end();
  QTableView::paintEvent(event);
  painter.begin(viewport());
  for (int row = 0; row < rows; ++row) {
    const QRect line = line_of(row);
    DrawRuleBelow(painter, line, colors[Role::Hair]);
    if (row != SelectedRow()) continue;
    const QRect bar(0, line.top(), kSelectionBar, line.height());
    painter.fillRect(QStyle::visualRect(layoutDirection(), line, bar),
                     colors[hasFocus() ? Role::Accent : Role::Edge]);
    if (!hasFocus()) continue;
    DrawRuleBelow(painter, line.adjusted(0, 0, 0, 1 - line.height()), colors[Role::Accent]);
    DrawRuleBelow(painter, line, colors[Role::Accent]);
  }
  const QModelIndex refused = Refused();
  if (refused.isValid()) {
    DrawBox(painter, visualRect(refused), kSmallRadius, QColor(), colors[Role::Problem], kRing);
  }
  if (hasFocus() && currentIndex() != refused && IsEditable(currentIndex())) {
    DrawBox(painter, visualRect(currentIndex()), kSmallRadius, QColor(), colors[Role::Accent],
            kRing);
  }
}

}  // namespace tallyfold::desktop

#include "desktop/register/look_table.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "desktop/look/colors.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/look/style.h"
#include "desktop/register/table_titles.h"

namespace tallyfold::desktop {

class LookTable::Model final : public QAbstractTableModel {
 public:
  explicit Model(QObject* parent) : QAbstractTableModel(parent) {}

  void SetColumns(const std::vector<Column>* columns) {
    beginResetModel();
    columns_ = columns;
    rows_.clear();
    endResetModel();
  }
  // True where the number of rows has changed.
  bool SetRows(std::vector<Row> rows) {
    if (rows.size() != rows_.size()) {
      beginResetModel();
      rows_ = std::move(rows);
      endResetModel();
      return true;
    }
    rows_ = std::move(rows);
    if (!rows_.empty()) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    return false;
  }
  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() || columns_ == nullptr ? 0 : static_cast<int>(columns_->size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid()) return {};
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    const auto column = static_cast<std::size_t>(index.column());
    if (column >= row.size()) return {};
    const CellLook& look = row[column];
    if (role == kCellRole) return QVariant::fromValue(look);
    if (role == Qt::DisplayRole) return look.text;
    return {};
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal) return {};
    const Column& column = (*columns_)[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return column.title;
    if (role != Qt::TextAlignmentRole) return {};
    return QVariant(
        Qt::AlignVCenter |
        (column.align == CellLook::Align::Trailing ? Qt::AlignTrailing : Qt::AlignLeading));
  }

 private:
  const std::vector<Column>* columns_ = nullptr;
  std::vector<Row> rows_;
};

LookTable::LookTable(QWidget* parent) : QTableView(parent), model_(new Model(this)) {
  setModel(model_);
  setItemDelegate(new CellDelegate(this, this));
  setHorizontalHeader(new TableTitles(this));
  setShowGrid(false);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(RowHeight(fontMetrics()));
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setTabKeyNavigation(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(ScrollPerPixel);
  setWordWrap(false);
  connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& index) {
            viewport()->update();
            if (!is_showing_ && index.isValid()) emit RowChosen(index.row());
          });
  connect(this, &QTableView::doubleClicked, this,
          [this](const QModelIndex& index) { emit RowActivated(index.row()); });
}

void LookTable::SetColumns(std::vector<Column> columns) {
  columns_ = std::move(columns);
  model_->SetColumns(&columns_);
  const auto has_title = [](const Column& column) { return !column.title.isEmpty(); };
  horizontalHeader()->setVisible(std::any_of(columns_.begin(), columns_.end(), has_title));
  auto* delegate = static_cast<CellDelegate*>(itemDelegate());
  delegate->SetOuterColumns(0, -1);
}

void LookTable::SetRows(std::vector<Row> rows) {
  is_showing_ = true;
  model_->SetRows(std::move(rows));
  is_showing_ = false;
  FitColumns();
}

void LookTable::ShowChosen(int row) {
  is_showing_ = true;
  if (row < 0 || row >= model_->rowCount()) {
    setCurrentIndex({});
    clearSelection();
  } else if (currentIndex().row() != row) {
    setCurrentIndex(model_->index(row, 0));
  }
  is_showing_ = false;
}

void LookTable::SetRowsInSight(int count) {
  const int titles =
      horizontalHeader()->isVisibleTo(this) ? horizontalHeader()->sizeHint().height() : 0;
  setFixedHeight(count * RowHeight(fontMetrics()) + titles + 2 * frameWidth());
}

void LookTable::SetEmptyText(const QString& text) {
  empty_text_ = text;
  viewport()->update();
}

RowState LookTable::StateOf(int row) const {
  return {row == currentIndex().row(), hasFocus(), false, false};
}

void LookTable::FitColumns() {
  int rest = viewport()->width();
  int needed = 0;
  int taker = -1;
  int takers_least = 0;
  const QFontMetrics titles(horizontalHeader()->font());
  for (int i = 0; i < static_cast<int>(columns_.size()); ++i) {
    const Column& column = columns_[static_cast<std::size_t>(i)];
    int width = std::max(column.width,
                         titles.horizontalAdvance(column.title) + kCellPadding + kOuterCellPadding);
    if (column.takes_rest) {
      taker = i;
      takers_least = width;
    } else {
      width = std::max(width, sizeHintForColumn(i));
      setColumnWidth(i, width);
      rest -= width;
    }
    needed += width;
  }
  if (taker >= 0) setColumnWidth(taker, std::max(takers_least, rest));
  setMinimumWidth(needed + kScrollBarExtent + 2 * frameWidth());
}

void LookTable::PaintRow(QPainter& painter, int row) const {
  const Colors& colors = ColorsOf(palette());
  const int y = rowViewportPosition(row);
  const QRect rect(0, y, viewport()->width(), rowHeight(row));
  if (row == currentIndex().row()) {
    const bool has_focus = hasFocus();
    FillSnapped(painter, rect, colors[has_focus ? Role::Selection : Role::InactiveSelection]);
  }
  DrawRuleBelow(painter, rect, colors[Role::Hair]);
}

void LookTable::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  const Colors& colors = ColorsOf(palette());
  painter.fillRect(viewport()->rect(), colors[Role::Base]);
  for (int row = 0; row < model_->rowCount(); ++row) PaintRow(painter, row);
  if (model_->rowCount() == 0 && !empty_text_.isEmpty()) {
    painter.setPen(colors[Role::Dim]);
    painter.drawText(viewport()->rect().adjusted(kOuterCellPadding, 0, -kOuterCellPadding, 0),
                     Qt::AlignCenter | Qt::TextWordWrap, empty_text_);
  }
  painter.end();
  QTableView::paintEvent(event);
  const int current = currentIndex().row();
  if (current < 0) return;
  QPainter bar(viewport());
  const QRect rect(0, rowViewportPosition(current), viewport()->width(), rowHeight(current));
  const QColor& ink = colors[hasFocus() ? Role::Accent : Role::Edge];
  FillSnapped(bar,
              QStyle::visualRect(layoutDirection(), rect,
                                 QRect(rect.x(), rect.y(), kSelectionBar, rect.height())),
              ink);
  if (!hasFocus()) return;
  DrawRuleBelow(bar, rect.adjusted(0, 0, 0, -rect.height() + 1), ink);
  DrawRuleBelow(bar, rect, ink);
}

void LookTable::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  FitColumns();
}

void LookTable::initViewItemOption(QStyleOptionViewItem* option) const {
  QTableView::initViewItemOption(option);
  LeaveSelectionToTable(*option);
}

void LookTable::keyPressEvent(QKeyEvent* event) {
  const int rows = model_->rowCount();
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!currentIndex().isValid()) break;
      return emit RowActivated(currentIndex().row());
    case Qt::Key_Home:
    case Qt::Key_End:
      // The toolkit goes to the first and the last column.
      if (rows > 0) setCurrentIndex(model_->index(event->key() == Qt::Key_Home ? 0 : rows - 1, 0));
      return;
    case Qt::Key_Escape:
      return event->ignore();
    default:
      break;
  }
  QTableView::keyPressEvent(event);
}

}  // namespace tallyfold::desktop

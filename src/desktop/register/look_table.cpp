#include "desktop/register/look_table.h"

#include <QAbstractTableModel>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "desktop/look/assistive.h"
#include "desktop/look/colors.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/look/style.h"
#include "desktop/look/text_length.h"
#include "desktop/register/spoken_cell.h"
#include "desktop/register/table_titles.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {

class LookTable::Model final : public QAbstractTableModel {
 public:
  explicit Model(LookTable* table) : QAbstractTableModel(table), table_(*table) {}

  void SetColumns(const std::vector<Column>* columns) {
    beginResetModel();
    columns_ = columns;
    SetSource(0, {});
    endResetModel();
  }
  void SetRows(int count, RowMaker make) {
    if (count != count_) {
      beginResetModel();
      SetSource(count, std::move(make));
      return endResetModel();
    }
    SetSource(count, std::move(make));
    if (count > 0) emit dataChanged(index(0, 0), index(count - 1, columnCount() - 1));
  }
  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : count_;
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() || columns_ == nullptr ? 0 : static_cast<int>(columns_->size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid()) return {};
    const Row& row = RowAt(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    if (column >= row.size()) return {};
    const CellLook& look = row[column];
    if (role == kCellRole) return QVariant::fromValue(look);
    if (role == Qt::DisplayRole || role == Qt::EditRole) return look.text;
    if (role == Qt::ToolTipRole) {
      return table_.IsCut(look, index.column()) ? PlainToolTip(look.text) : QString();
    }
    if (role == Qt::AccessibleTextRole) return SpokenCell(ColumnAt(index.column()).title, look);
    return {};
  }
  bool setData(const QModelIndex& index, const QVariant& value, int role) override {
    if (role != Qt::EditRole || !index.isValid() || value == data(index, role)) return false;
    emit table_.CellEdited(index.row(), index.column(), value.toString());
    return true;
  }
  Qt::ItemFlags flags(const QModelIndex& index) const override {
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (!index.isValid() || !ColumnAt(index.column()).is_edited) return flags;
    return flags | Qt::ItemIsEditable;
  }
  [[nodiscard]] const Column& ColumnAt(int column) const {
    return (*columns_)[static_cast<std::size_t>(column)];
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal) return {};
    const Column& column = ColumnAt(section);
    if (role == Qt::DisplayRole) return column.title;
    if (role != Qt::TextAlignmentRole) return {};
    return QVariant(
        Qt::AlignVCenter |
        (column.align == CellLook::Align::Trailing ? Qt::AlignTrailing : Qt::AlignLeading));
  }

 private:
  void SetSource(int count, RowMaker make) {
    count_ = count;
    make_ = std::move(make);
    made_ = -1;
  }
  // The cells of a row are asked for one after the other.
  [[nodiscard]] const Row& RowAt(int row) const {
    if (row != made_) last_ = make_(row);
    made_ = row;
    return last_;
  }

  LookTable& table_;
  const std::vector<Column>* columns_ = nullptr;
  int count_ = 0;
  RowMaker make_;
  mutable int made_ = -1;
  mutable Row last_;
};

// Edits a text in a field and a choice in a pop-up.
class LookTable::Cells final : public CellDelegate {
 public:
  explicit Cells(LookTable* table) : CellDelegate(table, table), table_(*table) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                        const QModelIndex& index) const override {
    const Column& column = table_.model_->ColumnAt(index.column());
    QWidget* editor = nullptr;
    if (column.choices.isEmpty()) {
      auto* field = new QLineEdit(parent);
      field->setMaxLength(kAnyLength);
      editor = field;
    } else {
      auto* choices = new QComboBox(parent);
      choices->addItems(column.choices);
      for (QWidget* list : {choices->view()->window(), static_cast<QWidget*>(choices->view())}) {
        list->setAccessibleName(column.title);
      }
      // Its own keys would end the choice at their first step.
      QTimer::singleShot(0, choices, &QComboBox::showPopup);
      connect(choices, &QComboBox::activated, this, [this, choices] {
        auto* cells = const_cast<Cells*>(this);
        emit cells->commitData(choices);
        emit cells->closeEditor(choices);
      });
      editor = choices;
    }
    editor->setObjectName(table_.objectName() + QLatin1String("_Cell_Field"));
    editor->setAccessibleName(column.title);
    return editor;
  }
  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    const QString text = index.data(Qt::EditRole).toString();
    if (auto* field = qobject_cast<QLineEdit*>(editor)) {
      if (!field->isModified()) field->setText(text);
    } else {
      static_cast<QComboBox*>(editor)->setCurrentText(text);
    }
  }
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override {
    const auto* field = qobject_cast<QLineEdit*>(editor);
    model->setData(
        index, field != nullptr ? field->text() : static_cast<QComboBox*>(editor)->currentText(),
        Qt::EditRole);
  }
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                            const QModelIndex& /*index*/) const override {
    editor->setGeometry(option.rect);
  }

 private:
  LookTable& table_;
};

LookTable::LookTable(QWidget* parent) : QTableView(parent), model_(new Model(this)) {
  setModel(model_);
  setItemDelegate(new Cells(this));
  setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed | SelectedClicked);
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
            if (!is_showing_ && index.isValid()) emit RowChosen(index.row());
          });
  connect(selectionModel(), &QItemSelectionModel::currentChanged, viewport(),
          [this] { viewport()->update(); });
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
  const auto count = static_cast<int>(rows.size());
  SetRows(count, [rows = std::move(rows)](int row) { return rows[static_cast<std::size_t>(row)]; });
}

void LookTable::SetRows(int count, RowMaker make) {
  is_showing_ = true;
  model_->SetRows(count, std::move(make));
  is_showing_ = false;
  FitColumns();
}

void LookTable::SetScrollsSideways() {
  scrolls_sideways_ = true;
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setHorizontalScrollMode(ScrollPerPixel);
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

void LookTable::EditCell(int row, int column) {
  setFocus();
  setCurrentIndex(model_->index(row, column));
  edit(currentIndex());
}

void LookTable::EndCellEditing() {
  // The field takes its text over when it is left.
  if (state() == EditingState) setFocus();
}

bool LookTable::HasEditedColumn() const {
  return std::ranges::any_of(columns_, &Column::is_edited);
}

void LookTable::SetRowFont(const QFont& font, bool uses_ellipses) {
  static_cast<CellDelegate*>(itemDelegate())->SetUsesEllipses(uses_ellipses);
  if (font == this->font()) return;
  // The titles keep theirs.
  const QFont titles = horizontalHeader()->font();
  setFont(font);
  horizontalHeader()->setFont(titles);
  verticalHeader()->setDefaultSectionSize(RowHeight(fontMetrics()));
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

bool LookTable::IsCut(const CellLook& look, int column) const {
  const auto* delegate = static_cast<CellDelegate*>(itemDelegate());
  return delegate->IsCut(look, column, columnWidth(column), font());
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
      if (!scrolls_sideways_) width = std::max(width, sizeHintForColumn(i));
      setColumnWidth(i, width);
      rest -= width;
    }
    needed += width;
  }
  if (taker >= 0) setColumnWidth(taker, std::max(takers_least, rest));
  if (!scrolls_sideways_) setMinimumWidth(needed + kScrollBarExtent + 2 * frameWidth());
}

void LookTable::PaintRow(QPainter& painter, int row) const {
  const Colors& colors = ColorsOf(palette());
  const int y = rowViewportPosition(row);
  const QRect rect(0, y, viewport()->width(), rowHeight(row));
  if (row == currentIndex().row()) {
    const bool has_focus = hasFocus();
    FillSnapped(painter, rect, colors[has_focus ? Role::Selection : Role::InactiveSelection]);
  }
  DrawRuleBelow(painter, rect, colors[group_ends_.contains(row) ? Role::Rule : Role::Hair]);
}

void LookTable::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  const Colors& colors = ColorsOf(palette());
  painter.fillRect(viewport()->rect(), colors[Role::Base]);
  const int first = rowAt(event->rect().top());
  for (int row = first; row >= 0 && row < model_->rowCount(); ++row) {
    if (rowViewportPosition(row) > event->rect().bottom()) break;
    PaintRow(painter, row);
  }
  if (model_->rowCount() == 0 && !empty_text_.isEmpty()) {
    painter.setPen(colors[Role::Dim]);
    painter.drawText(viewport()->rect().adjusted(kOuterCellPadding, 0, -kOuterCellPadding, 0),
                     Qt::AlignCenter | Qt::TextWordWrap, empty_text_);
  }
  painter.end();
  QTableView::paintEvent(event);
  const int current = currentIndex().row();
  if (current < 0) {
    if (!hasFocus()) return;
    QPainter ring(viewport());
    return DrawBox(ring, viewport()->rect(), 0, {}, colors[Role::Accent], kRing);
  }
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
  if (model_->flags(currentIndex()).testFlag(Qt::ItemIsEditable)) {
    DrawBox(bar, visualRect(currentIndex()).adjusted(kSelectionBar - 1, 1, 0, -1), kSmallRadius, {},
            ink, kRing);
  }
}

void LookTable::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  FitColumns();
}

void LookTable::initViewItemOption(QStyleOptionViewItem* option) const {
  QTableView::initViewItemOption(option);
  LeaveSelectionToTable(*option);
}

void LookTable::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  TellCurrentCell(*this);
  emit Focused();
}

void LookTable::keyPressEvent(QKeyEvent* event) {
  const int rows = model_->rowCount();
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      // In a cell it ends that cell, elsewhere it is the sheet's.
      if (HasEditedColumn()) return event->setAccepted(state() == EditingState);
      // Where nobody opens a row it is the sheet's too.
      if (!currentIndex().isValid() ||
          !isSignalConnected(QMetaMethod::fromSignal(&LookTable::RowActivated))) {
        return event->ignore();
      }
      return emit RowActivated(currentIndex().row());
    case Qt::Key_Home:
    case Qt::Key_End:
      // The toolkit goes to the first and the last column.
      if (rows > 0) setCurrentIndex(model_->index(event->key() == Qt::Key_Home ? 0 : rows - 1, 0));
      return;
    case Qt::Key_Escape:
      return event->ignore();
    case Qt::Key_Delete:
      if (currentIndex().isValid()) emit RemoveWanted(currentIndex().row());
      return;
    default:
      break;
  }
  QTableView::keyPressEvent(event);
}

}  // namespace tallyfold::desktop

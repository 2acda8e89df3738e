#include "desktop/register/plain_table.h"

#include <QHeaderView>
#include <QKeyEvent>

#include "desktop/texts.h"

namespace tallyfold::desktop {

class PlainTable::Model final : public QAbstractTableModel {
 public:
  Model(const TableState& table, QObject* parent) : QAbstractTableModel(parent), table_(table) {}
  int rowCount(const QModelIndex& parent = {}) const override {
    const auto* source = table_.DataSource();
    return parent.isValid() || source == nullptr
               ? 0
               : static_cast<int>(source->numberOfRowsInTableView());
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(table_.Columns().size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    const auto* source = table_.DataSource();
    if (source == nullptr || (role != Qt::DisplayRole && role != Qt::TextAlignmentRole)) return {};
    const auto cell =
        source->tableView(table_.Columns()[static_cast<std::size_t>(index.column())].identifier,
                          static_cast<std::size_t>(index.row()));
    if (role == Qt::DisplayRole) return ToQString(cell.text);
    return cell.alignment == TableCell::Alignment::Right
               ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
               : QVariant();
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return ToQString(TitleOf(table_.Columns()[static_cast<std::size_t>(section)]));
  }
  void Reset() {
    beginResetModel();
    endResetModel();
  }

 private:
  const TableState& table_;
};

PlainTable::PlainTable(TableState& table, QWidget* parent)
    : QTableView(parent), table_(table), model_(new Model(table, this)) {
  setModel(model_);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  verticalHeader()->hide();
  setTabKeyNavigation(false);
  table_.SetShownBy(this);
  connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& index) {
            if (!is_showing_ && index.isValid()) emit RowSelected(index.row());
          });
  connect(this, &QTableView::doubleClicked, this,
          [this](const QModelIndex& index) { emit RowActivated(index.row()); });
  connect(horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int section) {
    emit HeaderClicked(ToQString(table_.Columns()[static_cast<std::size_t>(section)].identifier));
  });
  ShowColumns();
}

PlainTable::~PlainTable() {
  table_.SetShownBy(nullptr);
}

void PlainTable::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return && currentIndex().isValid()) {
    emit RowActivated(currentIndex().row());
  } else {
    QTableView::keyPressEvent(event);
  }
}

void PlainTable::ShowColumns() {
  is_showing_ = true;
  model_->Reset();
  for (int i = 0; i < model_->columnCount(); ++i) {
    setColumnWidth(i, static_cast<int>(table_.Columns()[static_cast<std::size_t>(i)].width * 1.3));
  }
  ShowSelection();
}

void PlainTable::ShowSelection() {
  is_showing_ = true;
  const auto row = table_.SelectedRow();
  if (row < 0) {
    clearSelection();
  } else if (row < model_->rowCount()) {
    setCurrentIndex(model_->index(row, 0));
  }
  is_showing_ = false;
}

void PlainTable::TableChanged(const TableState&, TableState::Change change) {
  if (change == TableState::Change::Columns) ShowColumns();
  if (change == TableState::Change::SelectedRow) ShowSelection();
  if (change == TableState::Change::ScrolledRow && table_.ScrolledRow() >= 0) {
    scrollTo(model_->index(table_.ScrolledRow(), 0));
  }
}

void PlainTable::RowsChanged(const TableState&, const RowsChange&) {
  ShowColumns();
}

}  // namespace tallyfold::desktop

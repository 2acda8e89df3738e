#include "desktop/register/row_model.h"

#include <algorithm>
#include <utility>

#include "desktop/register/spoken_cell.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr std::string_view kAmount = "amount";

// Shown and hidden ones, in an order that neither moving nor hiding changes.
std::vector<TableColumn> AllColumns(const TableState& table) {
  std::vector<TableColumn> columns = table.Columns();
  const std::vector<TableColumn> hidden = table.HiddenColumns();
  columns.insert(columns.end(), hidden.begin(), hidden.end());
  return columns;
}

bool AreSameColumns(const std::vector<TableColumn>& a, const std::vector<TableColumn>& b) {
  return a.size() == b.size() && std::all_of(a.begin(), a.end(), [&b](const TableColumn& each) {
           return std::any_of(b.begin(), b.end(), [&each](const TableColumn& other) {
             return other.identifier == each.identifier;
           });
         });
}

CellLook::Align AlignmentOf(const TableColumn& column, const TableCell& cell) {
  if (column.content == TableColumn::Content::Mark) return CellLook::Align::Center;
  return cell.alignment == TableCell::Alignment::Right ? CellLook::Align::Trailing
                                                       : CellLook::Align::Leading;
}

}  // namespace

RowModel::RowModel(const TableState& table, QObject* parent)
    : QAbstractTableModel(parent), table_(table), columns_(AllColumns(table)) {
  Reset();
}

void RowModel::Reset() {
  beginResetModel();
  const TableDataSource* source = table_.DataSource();
  row_count_ = source != nullptr ? static_cast<int>(source->numberOfRowsInTableView()) : 0;
  endResetModel();
}

bool RowModel::TakeColumns() {
  std::vector<TableColumn> columns = AllColumns(table_);
  if (AreSameColumns(columns, columns_)) return false;
  columns_ = std::move(columns);
  Reset();
  return true;
}

void RowModel::Take(const RowsChange& change) {
  const int first = static_cast<int>(change.first);
  const int last = static_cast<int>(change.last);
  const TableDataSource* source = table_.DataSource();
  const int count = source != nullptr ? static_cast<int>(source->numberOfRowsInTableView()) : 0;
  switch (change.kind) {
    case RowsChange::Kind::Inserted:
      if (row_count_ + (last - first + 1) != count) break;
      until_told_ = {first, 0, last - first + 1};
      beginInsertRows({}, first, last);
      until_told_ = {};
      row_count_ = count;
      return endInsertRows();
    case RowsChange::Kind::Removed:
      if (row_count_ - (last - first + 1) != count) break;
      until_told_ = {first, last - first + 1, first - last - 1};
      beginRemoveRows({}, first, last);
      until_told_ = {};
      row_count_ = count;
      return endRemoveRows();
    case RowsChange::Kind::Changed:
    case RowsChange::Kind::Moved:
    case RowsChange::Kind::Reordered: {
      if (row_count_ != count || count == 0) break;
      // The rows stay where they are and show something else: told as moves, each of 100,000
      // selected rows would cost an index of its own. Who selects follows them by itself.
      const bool is_all = change.kind == RowsChange::Kind::Reordered;
      const int top = is_all ? 0 : std::min(first, last);
      const int bottom = is_all ? count - 1 : std::min(count - 1, std::max(first, last));
      emit dataChanged(index(top, 0), index(bottom, columnCount() - 1));
      return;
    }
    case RowsChange::Kind::Reset:
      break;
  }
  Reset();
}

int RowModel::IndexOf(std::string_view identifier) const noexcept {
  const auto found = std::find_if(
      columns_.begin(), columns_.end(),
      [identifier](const TableColumn& column) { return column.identifier == identifier; });
  return found == columns_.end() ? -1 : static_cast<int>(found - columns_.begin());
}

TableCell RowModel::CellAt(int row, int column) const {
  return table_.DataSource()->tableView(ColumnAt(column).identifier, static_cast<std::size_t>(row));
}

CellLook RowModel::LookAt(int row, int column) const {
  const TableColumn& shown = ColumnAt(column);
  const auto at = static_cast<std::size_t>(row);
  const TableCell cell = CellAt(row, column);
  const RowLook row_look = table_.DataSource()->LookOfRow(at);
  CellLook look;
  look.text = ToQString(cell.text);
  look.align = AlignmentOf(shown, cell);
  look.is_italic = row_look.is_italic;
  if (cell.mark != TableCell::Mark::None) {
    look.mark = cell.mark == TableCell::Mark::Set ? CellLook::Mark::Set : CellLook::Mark::Unset;
    look.mark_is_box = marks_are_boxes_;
  }
  look.is_figure = cell.number.has_value() && cell.mark == TableCell::Mark::None;
  if (shown.content == TableColumn::Content::Amount && cell.number.value_or(0.0) != 0.0) {
    if (shown.identifier == kAmount) {
      if (row_look.color) look.color = ColorOf(*row_look.color);
    } else if (*cell.number < 0.0) {
      look.color = look_.negative;
    }
  }
  if (details_ != nullptr) details_->AddTo(look, shown.identifier, at);
  return look;
}

QString RowModel::ToolTipAt(int row, int column) const {
  return details_ == nullptr
             ? QString()
             : details_->ToolTipOf(ColumnAt(column).identifier, static_cast<std::size_t>(row));
}

int RowModel::RowOfSource(const QModelIndex& index) const {
  const TableDataSource* source = table_.DataSource();
  if (!index.isValid() || source == nullptr || index.column() >= columnCount()) return -1;
  int row = index.row();
  if (row >= until_told_.first) {
    if (row < until_told_.first + until_told_.gone) return -1;
    row += until_told_.by;
  }
  return static_cast<std::size_t>(row) < source->numberOfRowsInTableView() ? row : -1;
}

int RowModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : row_count_;
}

int RowModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
  const int row = RowOfSource(index);
  if (row < 0) return {};
  switch (role) {
    case kCellRole:
      return QVariant::fromValue(LookAt(row, index.column()));
    case Qt::DisplayRole:
      return LookAt(row, index.column()).text;
    case Qt::AccessibleTextRole:
      return SpokenCell(ToQString(TitleOf(ColumnAt(index.column()))), LookAt(row, index.column()));
    case Qt::AccessibleDescriptionRole:
      return ToQString(table_.DataSource()->SpeakableRow(static_cast<std::size_t>(row)));
    default:
      return {};
  }
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const {
  const bool exists = section >= 0 && section < columnCount();
  if (orientation != Qt::Horizontal || !exists) return {};
  if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole) {
    return ToQString(TitleOf(ColumnAt(section)));
  }
  return {};
}

Qt::ItemFlags RowModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
}

}  // namespace tallyfold::desktop

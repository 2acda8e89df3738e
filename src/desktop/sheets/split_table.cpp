#include "desktop/sheets/split_table.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <utility>

#include "desktop/fields/amount_field.h"
#include "desktop/fields/combo_box_cell.h"
#include "desktop/look/assistive.h"
#include "desktop/look/colors.h"
#include "desktop/look/measures.h"
#include "desktop/register/spoken_cell.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

enum Column { kNumber, kDescription, kTo, kAmount, kColumns };
constexpr int kSplitLines = static_cast<int>(std::tuple_size_v<SplitRows>);
constexpr int kNumberWidth = 34;
constexpr int kAmountWidth = 96;
constexpr int kSplitWidth = 440;

// 0 for an empty text, none for what is no amount.
std::optional<double> AmountOf(const QString& text) {
  return text.trimmed().isEmpty() ? 0.0 : AmountIn(text.trimmed());
}

QString TextOfPart(double amount) {
  return amount == 0.0 ? QString() : TextOfAmount(amount);
}

}  // namespace

class SplitTable::Model final : public QAbstractTableModel {
 public:
  using Line = std::array<QString, kColumns>;

  Model(SplitTable& table) : QAbstractTableModel(&table), table_(table) {}

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : kSplitLines;
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : kColumns;
  }
  Qt::ItemFlags flags(const QModelIndex& index) const override {
    const auto flags = QAbstractTableModel::flags(index);
    return index.column() == kNumber ? flags : flags | Qt::ItemIsEditable;
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid()) return {};
    const QString& text = TextAt(index);
    const bool is_number = index.column() == kNumber;
    if (role == Qt::EditRole || role == Qt::DisplayRole) {
      return is_number ? QString::number(index.row() + 1) : text;
    }
    if (role == Qt::AccessibleDescriptionRole && index == table_.Refused()) {
      return ToQString(table_.problem_->text);
    }
    const bool is_spoken = role == Qt::AccessibleTextRole;
    if (role != kCellRole && !is_spoken) return {};
    CellLook look;
    look.text = is_number ? QString::number(index.row() + 1) : text;
    look.is_dim = is_number;
    // What is no amount is shown as it was typed.
    look.is_figure = is_number || (index.column() == kAmount && AmountOf(text).has_value());
    if (is_number || index.column() == kAmount) look.align = CellLook::Align::Trailing;
    if (index.column() == kAmount && !AmountOf(text)) {
      look.color = ColorsOf(table_.palette())[Role::Problem];
    }
    if (is_spoken) return SpokenCell(titles_[static_cast<std::size_t>(index.column())], look);
    return QVariant::fromValue(look);
  }
  bool setData(const QModelIndex& index, const QVariant& value, int role) override {
    if (role != Qt::EditRole || !index.isValid() || index.column() == kNumber) return false;
    QString text = value.toString();
    if (index.column() == kAmount) {
      if (const auto amount = AmountOf(text)) text = TextOfPart(*amount);
    }
    if (text == TextAt(index)) return true;
    Put(index, text);
    emit table_.Edited();
    return true;
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::DisplayRole) return titles_[static_cast<std::size_t>(section)];
    if (role != Qt::TextAlignmentRole) return {};
    return QVariant(Qt::AlignVCenter | (section == kAmount ? Qt::AlignTrailing : Qt::AlignLeading));
  }

  void SetTitles(Line titles) {
    titles_ = std::move(titles);
    emit headerDataChanged(Qt::Horizontal, 0, kColumns - 1);
  }
  void Put(const QModelIndex& index, const QString& text) {
    lines_[static_cast<std::size_t>(index.row())][static_cast<std::size_t>(index.column())] = text;
    emit dataChanged(index, index);
  }
  [[nodiscard]] SplitRow RowAt(int row) const {
    const Line& line = lines_[static_cast<std::size_t>(row)];
    return {ToUtf8(line[kDescription]), ToUtf8(line[kTo]), AmountOf(line[kAmount])};
  }
  [[nodiscard]] const QString& TextAt(const QModelIndex& index) const {
    return lines_[static_cast<std::size_t>(index.row())][static_cast<std::size_t>(index.column())];
  }

 private:
  SplitTable& table_;
  std::array<Line, kSplitLines> lines_;
  Line titles_;
};

// Edits a cell in a field of the window's own.
class SplitTable::Cells final : public EditCells {
 public:
  explicit Cells(SplitTable* table) : EditCells(table, table) {}

  FormerTexts descriptions;
  FormerTexts to_froms;

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                        const QModelIndex& index) const override {
    QLineEdit* field = nullptr;
    if (index.column() == kAmount) {
      field = new AmountField(parent);
    } else {
      auto* cell = new LDGRComboBoxCell(parent);
      cell->SetTexts(index.column() == kDescription ? descriptions : to_froms);
      field = cell;
    }
    field->setObjectName(QLatin1String("split_Cell_Field"));
    field->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    return field;
  }
};

SplitTable::SplitTable(QWidget* parent)
    : EditTable(parent), model_(new Model(*this)), cells_(new Cells(this)) {
  SetUp(model_, cells_);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setMinimumWidth(kSplitWidth);
  setFixedHeight(horizontalHeader()->sizeHint().height() + kSplitLines * RowHeight(fontMetrics()) +
                 2 * frameWidth());
}

void SplitTable::SetToTitle(const QString& title) {
  model_->SetTitles({QString(), Text("Description"), title, Text("Amount")});
}

void SplitTable::SetCompletions(FormerTexts descriptions, FormerTexts to_froms) {
  cells_->descriptions = std::move(descriptions);
  cells_->to_froms = std::move(to_froms);
}

void SplitTable::ShowRows(const SplitRows& rows, const std::optional<Problem>& problem) {
  if (problem != problem_) viewport()->update();
  problem_ = problem;
  for (int i = 0; i < kSplitLines; ++i) {
    const SplitRow& row = rows[static_cast<std::size_t>(i)];
    const SplitRow shown = model_->RowAt(i);
    const auto show = [this, i](Column column, const QString& text) {
      model_->Put(model_->index(i, column), text);
    };
    if (row.description != shown.description) show(kDescription, ToQString(row.description));
    if (row.to != shown.to) show(kTo, ToQString(row.to));
    if (row.amount != shown.amount) show(kAmount, TextOfPart(row.amount.value_or(0.0)));
  }
}

SplitRows SplitTable::Rows() const {
  SplitRows rows;
  for (int i = 0; i < kSplitLines; ++i) rows[static_cast<std::size_t>(i)] = model_->RowAt(i);
  return rows;
}

QModelIndex SplitTable::Refused() const {
  return problem_ && problem_->row >= 0 ? model_->index(problem_->row, kAmount) : QModelIndex();
}

void SplitTable::SelectFirst() {
  setCurrentIndex(model_->index(0, kDescription));
}

void SplitTable::SelectAmount(int row) {
  setCurrentIndex(model_->index(row, kAmount));
  setFocus();
}

QModelIndex SplitTable::moveCursor(CursorAction action, Qt::KeyboardModifiers held) {
  const QModelIndex index = EditTable::moveCursor(action, held);
  return index.column() == kNumber ? index.siblingAtColumn(kDescription) : index;
}

void SplitTable::keyPressEvent(QKeyEvent* event) {
  const bool is_open = state() == EditingState;
  if (event->key() == Qt::Key_Delete && !is_open && currentIndex().isValid()) {
    model_->setData(currentIndex(), QString(), Qt::EditRole);
    return;
  }
  EditTable::keyPressEvent(event);
}

void SplitTable::focusInEvent(QFocusEvent* event) {
  EditTable::focusInEvent(event);
  TellCurrentCell(*this);
  if (currentIndex().column() < kDescription) {
    setCurrentIndex(model_->index(std::max(0, currentIndex().row()), kDescription));
  }
}

void SplitTable::resizeEvent(QResizeEvent* event) {
  EditTable::resizeEvent(event);
  const int rest = viewport()->width() - kNumberWidth - kAmountWidth;
  setColumnWidth(kNumber, kNumberWidth);
  setColumnWidth(kDescription, rest / 2);
  setColumnWidth(kTo, rest - rest / 2);
  setColumnWidth(kAmount, kAmountWidth);
}

}  // namespace tallyfold::desktop

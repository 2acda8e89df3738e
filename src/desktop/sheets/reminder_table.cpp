#include "desktop/sheets/reminder_table.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <map>
#include <tuple>
#include <utility>

#include "desktop/fields/amount_field.h"
#include "desktop/fields/date_field.h"
#include "desktop/look/assistive.h"
#include "desktop/look/colors.h"
#include "desktop/look/measures.h"
#include "desktop/register/spoken_cell.h"
#include "desktop/register/table_look.h"
#include "desktop/register/table_titles.h"
#include "desktop/texts.h"
#include "model/date_format.h"
#include "platform/ambient.h"
#include "registers/register_look.h"

namespace tallyfold::desktop {
namespace {

enum DueColumn { kDueMark, kDueDate, kDueType, kDueDescription, kDueToFrom, kDueAmount };
constexpr std::array kDueTitles{"",        "Date",  "Type", "Description",
                                "To/From", "Amount"};  // English keys
constexpr int kDueColumns = static_cast<int>(kDueTitles.size());
constexpr int kMarkWidth = 40;
constexpr int kDueDateWidth = 132;
constexpr int kDueTypeWidth = 124;
constexpr int kDueAmountWidth = 124;

constexpr std::string_view kDueDateField = "scheduleReminderSheet_Date_Field";
constexpr std::string_view kDueAmountField = "scheduleReminderSheet_Amount_Field";

bool AreSameRow(const ReminderRow& a, const ReminderRow& b) {
  return a.schedule == b.schedule && a.days == b.days;
}

}  // namespace

class ReminderTable::Model final : public QAbstractTableModel {
 public:
  Model(ReminderTable& table, const LDGRPreferences& preferences)
      : QAbstractTableModel(&table), table_(table), preferences_(preferences) {}

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : kDueColumns;
  }
  Qt::ItemFlags flags(const QModelIndex& index) const override {
    const ReminderRow& row = RowAt(index.row());
    const bool is_edited = (index.column() == kDueDate && row.date_is_enabled) ||
                           (index.column() == kDueAmount && row.amount_is_enabled);
    const auto flags = QAbstractTableModel::flags(index);
    return is_edited ? flags | Qt::ItemIsEditable : flags;
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid()) return {};
    const ReminderRow& row = RowAt(index.row());
    switch (role) {
      case Qt::DisplayRole:
        return index.column() == kDueMark ? (row.typed.is_marked ? Text("Marked") : QString())
                                          : TextAt(row, index.column());
      case Qt::AccessibleTextRole:
        return index.column() == kDueMark
                   ? Text(row.typed.is_marked ? "Marked" : "Not marked")
                   : SpokenCell(
                         headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString(),
                         LookAt(row, index.column()));
      case Qt::AccessibleDescriptionRole:
        return ToQString(index == table_.Refused() ? problem_->text
                                                   : row.schedule->asSpeakableString());
      case Qt::EditRole:
        return EditedText(row, index.column());
      case Qt::ToolTipRole:
        return PlainToolTip(TextAt(row, index.column()));
      case kCellRole:
        return QVariant::fromValue(LookAt(row, index.column()));
      default:
        return {};
    }
  }
  bool setData(const QModelIndex& index, const QVariant& value, int role) override {
    if (role != Qt::EditRole || !flags(index).testFlag(Qt::ItemIsEditable)) return false;
    ReminderRow& row = rows_[static_cast<std::size_t>(index.row())];
    const QString text = value.toString();
    if (text == EditedText(row, index.column())) return true;
    if (index.column() == kDueAmount) {
      row.typed.amount = AmountIn(text.trimmed());
      Keep(row, kDueAmount, text, row.typed.amount.has_value());
    } else {
      DateField field;
      field.SetFormat(RegisterDateFormat(preferences_));
      field.SetDay(row.typed.date.value_or(row.days.front()));
      field.setText(text);
      row.typed.date = field.Day();
      Keep(row, kDueDate, text, row.typed.date.has_value());
    }
    Tell(index.row());
    emit table_.Edited();
    return true;
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::DisplayRole) return Text(kDueTitles[static_cast<std::size_t>(section)]);
    if (role != Qt::TextAlignmentRole) return {};
    return QVariant(Qt::AlignVCenter |
                    (section == kDueAmount ? Qt::AlignTrailing : Qt::AlignLeading));
  }

  // True where the rows are others than before.
  bool Show(const std::vector<ReminderRow>& rows, const std::optional<Problem>& problem) {
    const bool is_same =
        std::equal(rows.begin(), rows.end(), rows_.begin(), rows_.end(), AreSameRow);
    if (!is_same) beginResetModel();
    rows_ = rows;
    problem_ = problem;
    if (!is_same) {
      endResetModel();
    } else if (!rows_.empty()) {
      emit dataChanged(index(0, 0), index(rowCount() - 1, kDueColumns - 1));
    }
    return !is_same;
  }
  void TurnMarkOver(int row) {
    bool& is_marked = rows_[static_cast<std::size_t>(row)].typed.is_marked;
    is_marked = !is_marked;
    Tell(row);
  }
  [[nodiscard]] const std::vector<ReminderRow>& Rows() const { return rows_; }
  [[nodiscard]] const ReminderRow& RowAt(int row) const {
    return rows_[static_cast<std::size_t>(row)];
  }
  [[nodiscard]] const std::optional<Problem>& TheProblem() const { return problem_; }

 private:
  // A cell by its row's schedule, its day where it is a single one, and whether it is to come.
  using CellKey = std::tuple<const LDGRAccountSchedule*, DateNumber, bool, int>;

  static CellKey KeyOf(const ReminderRow& row, int column) {
    return row.date_is_enabled ? CellKey(row.schedule.get(), row.days.front(), false, column)
                               : CellKey(row.schedule.get(), 0, row.is_ahead, column);
  }
  // Only what cannot be read is kept as it was typed.
  void Keep(const ReminderRow& row, int column, const QString& text, bool can_be_read) {
    if (can_be_read) {
      unread_.erase(KeyOf(row, column));
    } else {
      unread_[KeyOf(row, column)] = text;
    }
  }
  [[nodiscard]] QString Unread(const ReminderRow& row, int column) const {
    const auto found = unread_.find(KeyOf(row, column));
    return found == unread_.end() ? QString() : found->second;
  }
  void Tell(int row) { emit dataChanged(index(row, 0), index(row, kDueColumns - 1)); }

  [[nodiscard]] QString Day(const ReminderRow& row) const {
    if (!row.typed.date) return Unread(row, kDueDate);
    return ToQString(
        FormatDate(DateNumberToNSCalendarDate(*row.typed.date), RegisterDateFormat(preferences_)));
  }
  [[nodiscard]] QString EditedText(const ReminderRow& row, int column) const {
    if (column != kDueAmount) return TextAt(row, column);
    return row.typed.amount ? TextOfAmount(*row.typed.amount) : Unread(row, kDueAmount);
  }
  [[nodiscard]] QString TextAt(const ReminderRow& row, int column) const {
    switch (column) {
      case kDueDate:
        return row.date_is_enabled ? Day(row) : ToQString(row.days_text);
      case kDueType:
        return ToQString(row.type);
      case kDueDescription:
        return ToQString(row.description);
      case kDueToFrom:
        return ToQString(row.to_from);
      case kDueAmount:
        return row.typed.amount ? ToQString(RegisterAmountText(*row.SignedAmount(), preferences_))
                                : Unread(row, kDueAmount);
      default:
        return {};
    }
  }
  [[nodiscard]] CellLook LookAt(const ReminderRow& row, int column) const {
    CellLook look;
    look.is_italic = row.is_ahead;
    if (column == kDueMark) {
      look.mark = row.typed.is_marked ? CellLook::Mark::Set : CellLook::Mark::Unset;
      look.mark_is_box = true;
      return look;
    }
    look.text = TextAt(row, column);
    const bool is_unread =
        (column == kDueDate && !row.typed.date) || (column == kDueAmount && !row.typed.amount);
    if (is_unread) {
      look.color = ColorsOf(table_.palette())[Role::Problem];
      if (column == kDueAmount) look.align = CellLook::Align::Trailing;
      return look;
    }
    if (column == kDueDate) {
      look.is_figure = row.date_is_enabled;
      if (!row.date_is_enabled) look.glyph_before = QLatin1String("repeat");
    } else if (column == kDueToFrom) {
      if (row.is_transfer) look.glyph_before = QLatin1String("transfer");
      if (!row.amount_is_enabled) look.glyph_before = QLatin1String("split");
    } else if (column == kDueAmount) {
      look.is_figure = true;
      look.align = CellLook::Align::Trailing;
      const auto color = LookOfEntry(*row.schedule, preferences_, TodaysDateNumber()).color;
      if (color && *row.typed.amount != 0.0) look.color = ColorOf(*color);
    }
    return look;
  }

  ReminderTable& table_;
  const LDGRPreferences& preferences_;
  std::vector<ReminderRow> rows_;
  std::map<CellKey, QString> unread_;
  std::optional<Problem> problem_;
};

class ReminderTable::Cells final : public EditCells {
 public:
  Cells(ReminderTable* table, const LDGRPreferences& preferences)
      : EditCells(table, table), preferences_(preferences) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                        const QModelIndex& index) const override {
    QLineEdit* field = nullptr;
    if (index.column() == kDueDate) {
      auto* date = new DateField(parent);
      date->SetFormat(RegisterDateFormat(preferences_));
      field = date;
    } else {
      field = new AmountField(parent);
    }
    const std::string_view name = index.column() == kDueDate ? kDueDateField : kDueAmountField;
    field->setObjectName(ToQString(name));
    field->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    return field;
  }

 private:
  const LDGRPreferences& preferences_;
};

ReminderTable::ReminderTable(const LDGRPreferences& preferences, QWidget* parent)
    : EditTable(parent), preferences_(preferences), model_(new Model(*this, preferences)) {
  auto* cells = new Cells(this, preferences);
  cells->SetUsesEllipses(preferences.GetUseEllipses());
  SetUp(model_, cells);
  // The reminder lists what is due by its day.
  static_cast<TableTitles*>(horizontalHeader())->SetSorted(kDueDate);
  connect(this, &QTableView::clicked, this, [this](const QModelIndex& index) {
    if (index.column() == kDueMark) TurnMarkOver(index.row());
  });
}

void ReminderTable::ShowRows(const std::vector<ReminderRow>& rows,
                             const std::optional<Problem>& problem) {
  const int row = SelectedRow();
  const int column = currentIndex().column();
  std::optional<ReminderRow> current;
  if (row >= 0) current = model_->RowAt(row);
  if (!model_->Show(rows, problem)) return viewport()->update();
  FitColumns();
  if (!current) return;
  const auto same = std::ranges::find_if(
      rows, [&current](const ReminderRow& each) { return AreSameRow(each, *current); });
  if (same == rows.end()) return;
  setCurrentIndex(model_->index(static_cast<int>(same - rows.begin()), column));
}

std::vector<ReminderRow::Typed> ReminderTable::Typed() const {
  std::vector<ReminderRow::Typed> typed;
  for (const ReminderRow& row : model_->Rows()) typed.push_back(row.typed);
  return typed;
}

QModelIndex ReminderTable::Refused() const {
  const auto& problem = model_->TheProblem();
  if (!problem || problem->row < 0 || problem->row >= model_->rowCount()) return {};
  if (problem->field == kDueDateField) return model_->index(problem->row, kDueDate);
  if (problem->field == kDueAmountField) return model_->index(problem->row, kDueAmount);
  return {};
}

void ReminderTable::GoToRefused() {
  if (!Refused().isValid()) return;
  setCurrentIndex(Refused());
  setFocus();
}

void ReminderTable::TurnMarkOver(int row) {
  model_->TurnMarkOver(row);
  emit Edited();
}

void ReminderTable::keyPressEvent(QKeyEvent* event) {
  const bool is_open = state() == EditingState;
  const int key = event->key();
  if (key == Qt::Key_Space && !is_open && SelectedRow() >= 0) return TurnMarkOver(SelectedRow());
  if ((key == Qt::Key_Home || key == Qt::Key_End) && !is_open && model_->rowCount() > 0) {
    // The toolkit goes to the first and the last column.
    const int row = key == Qt::Key_Home ? 0 : model_->rowCount() - 1;
    return setCurrentIndex(model_->index(row, std::max(0, currentIndex().column())));
  }
  EditTable::keyPressEvent(event);
}

void ReminderTable::focusInEvent(QFocusEvent* event) {
  EditTable::focusInEvent(event);
  TellCurrentCell(*this);
  if (!currentIndex().isValid()) setCurrentIndex(model_->index(0, kDueAmount));
}

void ReminderTable::resizeEvent(QResizeEvent* event) {
  EditTable::resizeEvent(event);
  FitColumns();
}

void ReminderTable::FitColumns() {
  int rest = viewport()->width() - kMarkWidth;
  setColumnWidth(kDueMark, kMarkWidth);
  for (const auto& [column, least] :
       {std::pair(kDueDate, kDueDateWidth), std::pair(kDueType, kDueTypeWidth),
        std::pair(kDueAmount, kDueAmountWidth)}) {
    const int width = std::max(least, sizeHintForColumn(column));
    setColumnWidth(column, width);
    rest -= width;
  }
  setColumnWidth(kDueDescription, rest / 2 + rest % 2);
  setColumnWidth(kDueToFrom, rest / 2);
}

}  // namespace tallyfold::desktop

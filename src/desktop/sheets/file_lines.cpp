#include "desktop/sheets/file_lines.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/look/colors.h"
#include "desktop/look/measures.h"
#include "desktop/register/cell_delegate.h"
#include "desktop/register/look_table.h"
#include "desktop/sheets/form.h"
#include "desktop/sheets/proof_rows.h"
#include "desktop/texts.h"
#include "platform/message.h"

namespace tallyfold::desktop {
namespace {

using Align = CellLook::Align;

constexpr int kLineNumberWidth = 40;
constexpr int kWidestText = 220;
constexpr int kLinesInSight = 8;
constexpr int kLeastLinesInSight = 4;
// As many lines of entries, and of others, tell how wide the columns are.
constexpr std::size_t kLinesMeasured = 100;
// Of the pop-ups: from one to the next, to the left of their column, and around them.
constexpr int kPopUpGap = 6;
constexpr int kPopUpShift = 2;
constexpr int kPopUpMargin = 5;

Align AlignOf(CsvField field) {
  switch (field) {
    case CsvField::Amount:
    case CsvField::Debit:
    case CsvField::Credit:
    case CsvField::Fee:
    case CsvField::Net:
    case CsvField::Balance:
      return Align::Trailing;
    default:
      return Align::Leading;
  }
}

// As wide as what is chosen, over columns that are narrower than the longest of its texts; its list
// has room for that.
class ColumnPopUp final : public QComboBox {
 public:
  using QComboBox::QComboBox;
  [[nodiscard]] QSize sizeHint() const override {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QSize text(fontMetrics().horizontalAdvance(currentText()), 0);
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, text, this);
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
};

}  // namespace

FileLines::FileLines(QWidget* parent)
    : QFrame(parent), strip_(new QWidget(this)), table_(new LookTable(this)) {
  setObjectName(QLatin1String("importOptions_Columns"));
  setFrameShape(QFrame::StyledPanel);
  setAccessibleName(Text("Columns of the File"));
  strip_->setBackgroundRole(QPalette::Base);
  strip_->setAutoFillBackground(true);
  table_->setObjectName(QLatin1String("importOptions_Lines_Table"));
  table_->setAccessibleName(Text("Lines of the File"));
  table_->setFrameShape(QFrame::NoFrame);
  table_->SetScrollsSideways();
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(frameWidth(), frameWidth(), frameWidth(), frameWidth());
  whole->setSpacing(0);
  whole->addWidget(strip_);
  whole->addWidget(table_);
  connect(table_->horizontalScrollBar(), &QScrollBar::valueChanged, this, &FileLines::PlacePopUps);
  connect(table_->horizontalHeader(), &QHeaderView::sectionResized, this, &FileLines::PlacePopUps);
}

void FileLines::SetLines(CsvLines lines, const StatementProof& proof) {
  lines_ = std::move(lines);
  table_->ShowChosen(-1);
  disagreeing_.clear();
  auto row = proof.disagreeing.begin();
  std::size_t entries = 0;
  for (std::size_t i = 0; i < lines_.size() && row != proof.disagreeing.end(); ++i) {
    if (lines_.KindAt(i) != CsvLine::Kind::Entry || entries++ != *row) continue;
    disagreeing_.push_back(i);
    ++row;
  }
  has_new_lines_ = true;
}

void FileLines::MakeColumns(const StatementOptionsState& state) {
  for (const Column& column : columns_) {
    // It may be one of them that is chosen from.
    column.pop_up->hide();
    column.pop_up->setObjectName(QString());
    column.pop_up->deleteLater();
  }
  columns_.clear();
  QWidget* before = nullptr;
  for (std::size_t i = 0; i < state.columns.size(); ++i) {
    const int place = static_cast<int>(i);
    auto* pop_up = new ColumnPopUp(strip_);
    pop_up->setObjectName(QLatin1String("importOptions_Column_PopUp_") + QString::number(place));
    pop_up->installEventFilter(this);
    pop_up->show();
    connect(pop_up, &QComboBox::currentIndexChanged, this,
            [this, place, pop_up] { emit FieldChosen(place, pop_up->currentData().toInt()); });
    if (before != nullptr) setTabOrder(before, pop_up);
    before = pop_up;
    columns_.push_back({pop_up, CsvField::None});
  }
  if (before != nullptr) setTabOrder(before, table_);
}

void FileLines::Show(const StatementOptionsState& state) {
  setVisible(!state.columns.empty());
  if (state.columns.empty()) return;
  if (columns_.size() != state.columns.size()) MakeColumns(state);
  ShowFields(state);
  ShowColumns();
  table_->SetRows(static_cast<int>(lines_.size()), [this](int row) { return RowAt(row); });
  const int strip = ControlHeight(fontMetrics()) + 2 * kPopUpMargin;
  strip_->setFixedHeight(strip);
  const auto height = [&](int rows) {
    return strip + rows * RowHeight(table_->fontMetrics()) + kScrollBarExtent + 2 * frameWidth();
  };
  const int rows = static_cast<int>(std::min<std::size_t>(lines_.size(), kLinesInSight));
  setMinimumHeight(height(std::min(rows, kLeastLinesInSight)));
  setMaximumHeight(height(rows));
  PlacePopUps();
  if (isVisible()) ScrollToEntries();
}

// Past a long preamble, with a line of it or the headings above.
void FileLines::ScrollToEntries() {
  if (!std::exchange(has_new_lines_, false)) return;
  std::size_t first = 0;
  while (first < lines_.size() && lines_.KindAt(first) != CsvLine::Kind::Entry) ++first;
  if (first == lines_.size()) first = 0;
  const int above = static_cast<int>(first) - (kLeastLinesInSight - 2);
  table_->scrollTo(table_->model()->index(std::max(0, above), 0), QAbstractItemView::PositionAtTop);
}

QSize FileLines::sizeHint() const {
  return {QFrame::sizeHint().width(), maximumHeight()};
}

// By their pop-ups, the headings and the first lines of each kind.
void FileLines::ShowColumns() {
  const auto& delegate = static_cast<const CellDelegate&>(*table_->itemDelegate());
  std::vector<int> widths = {kLineNumberWidth};
  for (const Column& each : columns_) widths.push_back(each.pop_up->sizeHint().width() + kPopUpGap);
  widths.push_back(0);
  std::size_t entries = 0;
  std::size_t others = 0;
  for (std::size_t i = 0; i < lines_.size() && std::min(entries, others) < kLinesMeasured; ++i) {
    const bool is_other = lines_.KindAt(i) == CsvLine::Kind::LeftOut;
    if (++(is_other ? others : entries) > kLinesMeasured) continue;
    const auto cells = RowAt(static_cast<int>(i));
    for (std::size_t column = 0; column < cells.size(); ++column) {
      // What a preamble says makes no column wider; its reason does.
      const bool is_reason = column + 1 == cells.size();
      if (is_other && !is_reason && column > 0) continue;
      const int needed =
          delegate.NeededWidth(cells[column], static_cast<int>(column), table_->font());
      widths[column] = std::max(widths[column], std::min(needed, kWidestText));
    }
  }
  std::vector<LookTable::Column> columns;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    columns.push_back({QString(), widths[i], Align::Leading, i + 1 == widths.size()});
  }
  table_->SetColumns(std::move(columns));
}

void FileLines::ShowFields(const StatementOptionsState& state) {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const auto& column = state.columns[i];
    QComboBox& pop_up = *columns_[i].pop_up;
    columns_[i].field = column.field;
    ShowItems(pop_up, state.field_items,
              IndexOfItemTagged(state.field_items, static_cast<std::int32_t>(column.field)));
    pop_up.view()->setMinimumWidth(pop_up.view()->sizeHintForColumn(0));
    const std::string number = std::to_string(i + 1);
    pop_up.setAccessibleName(ToQString(column.heading.empty()
                                           ? Message("Column {1}", {number})
                                           : Message("Column {1}, {2}", {number, column.heading})));
  }
}

std::vector<CellLook> FileLines::RowAt(int row) const {
  const CsvLine line = lines_.At(static_cast<std::size_t>(row));
  const bool disagrees = std::ranges::binary_search(disagreeing_, static_cast<std::size_t>(row));
  const bool is_dim = line.kind == CsvLine::Kind::LeftOut || line.kind == CsvLine::Kind::Heading;
  std::vector<CellLook> cells;
  cells.reserve(columns_.size() + 2);
  cells.push_back(FigureCell(std::to_string(line.line), Align::Trailing, true));
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const CsvField field = columns_[i].field;
    CellLook& cell =
        cells.emplace_back(TextCell(i < line.cells.size() ? line.cells[i] : std::string(), is_dim));
    cell.text = cell.text.simplified();
    cell.align = AlignOf(field);
    cell.is_dim = is_dim || field == CsvField::None;
    if (disagrees && field == CsvField::Balance) cell.color = ColorsOf(palette())[Role::Problem];
  }
  const bool is_heading = line.kind == CsvLine::Kind::Heading;
  const std::string_view why = is_heading                          ? "headings"
                               : line.reason                       ? TextOf(*line.reason)
                               : line.kind == CsvLine::Kind::Entry ? ""
                                                                   : "left out";
  cells.push_back(TextCell(why.empty() ? std::string() : LocalizedText(why), true));
  return cells;
}

void FileLines::PlacePopUps() {
  const int height = ControlHeight(fontMetrics());
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const int column = static_cast<int>(i) + 1;
    const int x = table_->columnViewportPosition(column);
    const int width = table_->columnWidth(column) - kPopUpGap;
    const bool is_leading_left = layoutDirection() == Qt::LeftToRight;
    columns_[i].pop_up->setGeometry(is_leading_left ? x - kPopUpShift : x + kPopUpGap + kPopUpShift,
                                    kPopUpMargin, width, height);
  }
}

void FileLines::ScrollTo(int column) {
  QScrollBar& bar = *table_->horizontalScrollBar();
  const int begin = table_->horizontalHeader()->sectionPosition(column);
  const int end = begin + table_->columnWidth(column);
  const int room = table_->viewport()->width();
  if (begin < bar.value()) bar.setValue(begin);
  if (end > bar.value() + room) bar.setValue(end - room);
}

template <typename Wanted>
void FileLines::GoToNext(Wanted is_wanted) {
  const std::size_t count = lines_.size();
  const auto from = static_cast<std::size_t>(table_->currentIndex().row() + 1);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t row = (from + i) % count;
    if (!is_wanted(row)) continue;
    table_->ShowChosen(static_cast<int>(row));
    return table_->setFocus();
  }
}

void FileLines::GoToNextDisagreeing() {
  GoToNext([this](std::size_t row) { return std::ranges::binary_search(disagreeing_, row); });
}

void FileLines::GoToNextLeftOut() {
  GoToNext([this](std::size_t row) { return lines_.KindAt(row) == CsvLine::Kind::LeftOut; });
}

bool FileLines::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) {
    const auto column = std::ranges::find(columns_, watched, &Column::pop_up);
    if (column != columns_.end()) ScrollTo(static_cast<int>(column - columns_.begin()) + 1);
  }
  return QFrame::eventFilter(watched, event);
}

void FileLines::showEvent(QShowEvent* event) {
  QFrame::showEvent(event);
  ScrollToEntries();
}

void FileLines::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  PlacePopUps();
}

}  // namespace tallyfold::desktop

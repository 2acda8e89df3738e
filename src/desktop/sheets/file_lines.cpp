#include "desktop/sheets/file_lines.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/look/colors.h"
#include "desktop/look/measures.h"
#include "desktop/look/rule_line.h"
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
// Of the rule below the pop-ups.
constexpr int kStripRuleHeight = 1;
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
    : QFrame(parent), strip_(new QScrollArea(this)), table_(new LookTable(this)) {
  setObjectName(QLatin1String("importOptions_Columns"));
  setFrameShape(QFrame::StyledPanel);
  setAccessibleName(Text("Columns of the File"));
  strip_->setFrameShape(QFrame::NoFrame);
  strip_->setFocusPolicy(Qt::NoFocus);
  strip_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  strip_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  table_->setObjectName(QLatin1String("importOptions_Lines_Table"));
  table_->setAccessibleName(Text("Lines of the File"));
  table_->setFrameShape(QFrame::NoFrame);
  table_->SetScrollsSideways();
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(frameWidth(), frameWidth(), frameWidth(), frameWidth());
  whole->setSpacing(0);
  whole->addWidget(strip_);
  whole->addWidget(new RuleLine(this));
  whole->addWidget(table_);
  // A pop-up that gets the keyboard comes into sight, and its column with it.
  QScrollBar* const bars[] = {strip_->horizontalScrollBar(), table_->horizontalScrollBar()};
  connect(bars[0], &QScrollBar::valueChanged, bars[1], &QScrollBar::setValue);
  connect(bars[1], &QScrollBar::valueChanged, bars[0], &QScrollBar::setValue);
}

void FileLines::SetLines(CsvLines lines, const StatementProof& proof) {
  has_new_lines_ = lines.size() != lines_.size();
  lines_ = std::move(lines);
  disagreeing_.clear();
  auto row = proof.disagreeing.begin();
  std::size_t entries = 0;
  for (std::size_t i = 0; i < lines_.size() && row != proof.disagreeing.end(); ++i) {
    if (lines_.KindAt(i) != CsvLine::Kind::Entry || entries++ != *row) continue;
    disagreeing_.push_back(i);
    ++row;
  }
}

void FileLines::MakeColumns(const StatementOptionsState& state) {
  for (const Column& column : columns_) column.pop_up->setObjectName(QString());
  columns_.clear();
  // It may be one of its pop-ups that is chosen from.
  if (QWidget* former = strip_->takeWidget()) former->deleteLater();
  auto* page = new QWidget;
  page->setBackgroundRole(QPalette::Base);
  auto* row = new QHBoxLayout(page);
  row->setContentsMargins(0, kPopUpMargin, 0, kPopUpMargin);
  row->setSpacing(0);
  row->addSpacing(kLineNumberWidth);
  for (std::size_t i = 0; i < state.columns.size(); ++i) {
    const int place = static_cast<int>(i);
    auto* pop_up = new ColumnPopUp(page);
    pop_up->setObjectName(QLatin1String("importOptions_Column_PopUp_") + QString::number(place));
    connect(pop_up, &QComboBox::currentIndexChanged, this,
            [this, place, pop_up] { emit FieldChosen(place, pop_up->currentData().toInt()); });
    row->addWidget(pop_up);
    row->addSpacing(kPopUpGap);
    columns_.push_back({pop_up, CsvField::None});
  }
  row->addStretch(1);
  strip_->setWidget(page);
  page->show();
}

void FileLines::Show(const StatementOptionsState& state) {
  setVisible(!state.columns.empty());
  if (state.columns.empty()) return;
  if (columns_.size() != state.columns.size()) MakeColumns(state);
  ShowFields(state);
  const int chosen = table_->currentIndex().row();
  const int place = table_->verticalScrollBar()->value();
  ShowColumns();
  table_->SetRows(static_cast<int>(lines_.size()), [this](int row) { return RowAt(row); });
  if (!has_new_lines_ && table_->currentIndex().row() != chosen) {
    table_->ShowChosen(chosen);
    table_->verticalScrollBar()->setValue(place);
  }
  const int strip = ControlHeight(fontMetrics()) + 2 * kPopUpMargin;
  strip_->setFixedHeight(strip);
  const auto height = [&](int rows) {
    return strip + kStripRuleHeight + rows * RowHeight(table_->fontMetrics()) + kScrollBarExtent +
           2 * frameWidth();
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
  // Other columns take the table back to its first line.
  if (widths == widths_) return;
  std::vector<LookTable::Column> columns;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    columns.push_back({QString(), widths[i], Align::Leading, i + 1 == widths.size()});
  }
  table_->SetColumns(std::move(columns));
  widths_ = std::move(widths);
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
  if (columns_.empty()) return;
  QWidget* const page = strip_->widget();
  auto* row = static_cast<QHBoxLayout*>(page->layout());
  row->itemAt(0)->spacerItem()->changeSize(table_->columnWidth(0) - kPopUpShift, 0);
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const int column = static_cast<int>(i) + 1;
    columns_[i].pop_up->setFixedWidth(table_->columnWidth(column) - kPopUpGap);
  }
  row->invalidate();
  // The strip has no scroll bar beside it.
  const int beside = strip_->viewport()->width() - table_->viewport()->width();
  page->setFixedSize(table_->horizontalHeader()->length() + std::max(0, beside), strip_->height());
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

void FileLines::showEvent(QShowEvent* event) {
  QFrame::showEvent(event);
  ScrollToEntries();
}

void FileLines::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  PlacePopUps();
}

}  // namespace tallyfold::desktop

#include "desktop/register/register_view.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "desktop/look/assistive.h"
#include "desktop/look/colors.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/look/style.h"
#include "desktop/register/column_widths.h"
#include "desktop/register/copied_rows.h"
#include "desktop/register/header.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

// The toolkit's own selection costs two indexes a stretch: it follows ours up to here.
constexpr std::size_t kMostMirroredRanges = 64;
// Less room for a name in a list is little.
constexpr int kWideName = 120;

// Carries the header's rule over the slot of the scroll bar.
class HeaderCap final : public QWidget {
 public:
  using QWidget::QWidget;

 private:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const Colors& colors = ColorsOf(palette());
    painter.fillRect(rect(), colors[Role::Base]);
    DrawRuleBelow(painter, rect(), colors[Role::Rule]);
  }
};

}  // namespace

RegisterView::RegisterView(TableState& table, QWidget* parent)
    : QTableView(parent),
      table_(table),
      model_(new RowModel(table, this)),
      header_(new Header(table, *model_, this)),
      delegate_(new CellDelegate(this, this)),
      cap_(new HeaderCap(this)) {
  setHorizontalHeader(header_);
  setModel(model_);
  setItemDelegate(delegate_);
  setFrameShape(QFrame::NoFrame);
  setShowGrid(false);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  // The core says which row is to be made visible.
  setAutoScroll(false);
  setTabKeyNavigation(false);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(NoSelection);
  setSelectionBehavior(SelectRows);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollMode(ScrollPerPixel);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  addScrollBarWidget(cap_, Qt::AlignTop);
  setMouseTracking(true);
  viewport()->setAttribute(Qt::WA_Hover);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setMinimumSectionSize(1);
  SetUpHeader();
  table_.SetShownBy(this);
  TableLook look;
  look.font = font();
  SetLook(look);
  ShowCurrentRow();
}

RegisterView::~RegisterView() {
  table_.SetShownBy(nullptr);
}

void RegisterView::SetUpHeader() {
  connect(header_, &Header::WidthDragged, this, &RegisterView::TakeDraggedWidth);
  // The toolkit has made the column as wide as its cells by then.
  connect(header_, &QHeaderView::sectionHandleDoubleClicked, this,
          [this](int section) { TakeDraggedWidth(section, header_->sectionSize(section)); });
  connect(header_, &QHeaderView::sectionMoved, this, &RegisterView::TakeMovedColumn);
  connect(header_, &Header::SortWanted, this, [this](int section) {
    emit HeaderClicked(ToQString(model_->ColumnAt(section).identifier));
  });
  connect(header_, &Header::ColumnHideWanted, this, &RegisterView::ColumnHideWanted);
  connect(header_, &Header::ColumnShowWanted, this, &RegisterView::ColumnShowWanted);
  connect(verticalScrollBar(), &QScrollBar::sliderMoved, this, [this] { ShowThumbToolTip(); });
}

void RegisterView::SetLook(const TableLook& look) {
  model_->SetLook(look);
  setFont(look.font);
  delegate_->SetUsesEllipses(look.uses_ellipses);
  header_->SetBodyFont(QGuiApplication::font());
  cap_->setFixedHeight(header_->Height());
  const int height = RowHeight(QFontMetrics(look.font));
  verticalHeader()->setDefaultSectionSize(is_list_ ? std::max(kAccountRowHeight, height) : height);
  verticalScrollBar()->setSingleStep(verticalHeader()->defaultSectionSize());
  ShowColumns();
  viewport()->update();
}

void RegisterView::MakeList() {
  is_list_ = true;
  header_->MakeBar();
  delegate_->SetOuterPaddings(kListPadding, kOuterCellPadding);
  delegate_->SetBreaksTexts(true);
  viewport()->setBackgroundRole(QPalette::Window);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  SetLook(TableLook(model_->Look()));
}

void RegisterView::SetDetails(const RowDetails* details) {
  model_->SetDetails(details);
  viewport()->update();
}

void RegisterView::SetMarksAreBoxes(bool are_boxes) {
  model_->SetMarksAreBoxes(are_boxes);
  viewport()->update();
}

void RegisterView::SetHasMonthRules(bool has_rules) {
  has_month_rules_ = has_rules;
  viewport()->update();
}

// --- Columns
// ---------------------------------------------------------------------------------------

std::vector<int> RegisterView::ShownColumns() const {
  std::vector<int> shown;
  for (const TableColumn& column : table_.Columns())
    shown.push_back(model_->IndexOf(column.identifier));
  return shown;
}

void RegisterView::ShowColumns() {
  const bool was_laying_out = std::exchange(is_laying_out_, true);
  model_->TakeColumns();
  const std::vector<int> shown = ShownColumns();
  for (int section = 0; section < model_->columnCount(); ++section) {
    const bool is_hidden = std::find(shown.begin(), shown.end(), section) == shown.end();
    if (header_->isSectionHidden(section) != is_hidden)
      header_->setSectionHidden(section, is_hidden);
  }
  int place = 0;
  for (const int section : shown) {
    const int from = header_->visualIndex(section);
    if (from != place) header_->moveSection(from, place);
    ++place;
  }
  const int first = shown.empty() ? -1 : shown.front();
  const int last = shown.empty() ? -1 : shown.back();
  header_->SetOuterColumns(first, last);
  delegate_->SetOuterColumns(first, last);
  is_laying_out_ = was_laying_out;
  FitColumns();
  viewport()->update();
}

void RegisterView::SetFirstColumns(std::vector<TableColumn> columns) {
  first_columns_ = std::move(columns);
  FitColumns();
}

void RegisterView::FitColumns() {
  const bool was_laying_out = std::exchange(is_laying_out_, true);
  const double factor = ColumnFactor(font());
  std::vector<ColumnRoom> rooms;
  for (const TableColumn& column : table_.Columns()) {
    rooms.push_back(RoomOf(column.identifier, column.width, factor));
    if (std::find(first_columns_.begin(), first_columns_.end(), column) != first_columns_.end()) {
      const int title = header_->NeededWidth(model_->IndexOf(column.identifier));
      rooms.back().width = std::max(rooms.back().width, title);
    }
    // In a list the figures need more room where they are long, and in a narrow one the names do.
    if (!is_list_ || column.content != TableColumn::Content::Amount) continue;
    const int needed = WidestCell(model_->IndexOf(column.identifier));
    int& wanted = rooms.back().width;
    const bool is_narrow = viewport()->width() - wanted < kWideName;
    if (needed > 0) wanted = is_narrow ? needed : std::max(wanted, needed);
  }
  const std::vector<int> widths = WidthsIn(viewport()->width(), rooms);
  const std::vector<int> shown = ShownColumns();
  for (std::size_t i = 0; i < shown.size(); ++i) {
    if (header_->sectionSize(shown[i]) != widths[i]) header_->resizeSection(shown[i], widths[i]);
  }
  is_laying_out_ = was_laying_out;
}

int RegisterView::WidestCell(int section) const {
  int widest = 0;
  const QFont heavy = DemiBoldFont(font());
  for (int row = 0; row < model_->rowCount(); ++row) {
    widest = std::max(widest, delegate_->NeededWidth(model_->LookAt(row, section), section, heavy));
  }
  return widest;
}

void RegisterView::TakeDraggedWidth(int section, int width) {
  const auto index = table_.ColumnWithIdentifier(model_->ColumnAt(section).identifier);
  if (index) table_.SetColumnWidth(*index, width / ColumnFactor(font()));
  FitColumns();
}

void RegisterView::TakeMovedColumn(int section, int /*from*/, int to) {
  if (is_laying_out_) return;
  const auto index = table_.ColumnWithIdentifier(model_->ColumnAt(section).identifier);
  if (!index) return;
  // Hidden columns have places in the header, but none among the columns shown.
  std::size_t place = 0;
  for (int visual = 0; visual < to; ++visual) {
    if (!header_->isSectionHidden(header_->logicalIndex(visual))) ++place;
  }
  table_.MoveColumn(*index, place);
}

// --- What the core tells
// -----------------------------------------------------------------------------

void RegisterView::TableChanged(const TableState& /*table*/, TableState::Change change) {
  switch (change) {
    case TableState::Change::Columns:
      return ShowColumns();
    case TableState::Change::SelectedRow:
      return ShowCurrentRow();
    case TableState::Change::ScrolledRow:
      return ScrollToRow(table_.ScrolledRow());
  }
}

void RegisterView::RowsChanged(const TableState& /*table*/, const RowsChange& change) {
  const bool moves_rows =
      change.kind == RowsChange::Kind::Inserted || change.kind == RowsChange::Kind::Removed;
  // Rows that come or go above what is in sight leave it in sight.
  const int top = rowAt(0);
  const int height = verticalHeader()->defaultSectionSize();
  const int count = static_cast<int>(change.last - change.first) + 1;
  const int value = verticalScrollBar()->value();
  hovered_ = -1;
  selection_.Follow(change,
                    static_cast<std::size_t>(table_.DataSource() != nullptr
                                                 ? table_.DataSource()->numberOfRowsInTableView()
                                                 : 0));
  model_->Take(change);
  if (moves_rows && top > static_cast<int>(change.first)) {
    executeDelayedItemsLayout();
    updateGeometries();
    const bool comes = change.kind == RowsChange::Kind::Inserted;
    const int above = comes ? count : std::min(count, top - static_cast<int>(change.first));
    verticalScrollBar()->setValue(value + (comes ? above : -above) * height);
  }
  anchor_ = -1;
  // What its columns need follows from its rows.
  if (is_list_) FitColumns();
  ShowCurrentRow();
  TellSelection();
  viewport()->update();
}

void RegisterView::ShowCurrentRow() {
  const int row = table_.SelectedRow();
  if (row < 0 || row >= model_->rowCount()) {
    if (row < 0) selection_.Clear();
    MakeCurrent(-1);
  } else {
    if (!selection_.Contains(row)) selection_.SelectOnly(row);
    MakeCurrent(row);
  }
  TellSelection();
}

void RegisterView::MakeCurrent(int row) {
  const int former = CurrentRow();
  const std::vector<int> shown = ShownColumns();
  const QModelIndex index =
      row < 0 || shown.empty() ? QModelIndex() : model_->index(row, shown.front());
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
  UpdateRow(former);
  UpdateRow(row);
}

void RegisterView::TellSelection() {
  QItemSelection mirrored;
  const auto& ranges = selection_.Ranges();
  const int last_column = model_->columnCount() - 1;
  const auto add = [&](int first, int last) {
    const int end = std::min(last, model_->rowCount() - 1);
    if (first <= end) mirrored.append({model_->index(first, 0), model_->index(end, last_column)});
  };
  if (is_list_) {
    // The toolkit would fill the row of what it knows as selected, over its box.
  } else if (ranges.size() <= kMostMirroredRanges) {
    for (const RowSelection::Range& range : ranges) add(range.first, range.last);
  } else if (CurrentRow() >= 0) {
    add(CurrentRow(), CurrentRow());
  }
  selectionModel()->select(mirrored, QItemSelectionModel::ClearAndSelect);
  viewport()->update();
  emit SelectionChanged();
}

// --- For the owner
// -------------------------------------------------------------------------------------

void RegisterView::selectAll() {
  if (model_->rowCount() == 0) return;
  if (selects_one_row_) return;
  selection_.SelectOnly({0, model_->rowCount() - 1});
  if (CurrentRow() < 0) {
    MakeCurrent(0);
    emit RowSelected(0);
  }
  TellSelection();
}

void RegisterView::SelectForUser(std::vector<int> rows) {
  std::erase_if(rows, [this](int row) { return row < 0 || row >= model_->rowCount(); });
  if (rows.empty()) return;
  const int current = rows.back();
  selection_.SelectThese(std::move(rows));
  anchor_ = current;
  MakeCurrent(current);
  ScrollToRow(current);
  TellSelection();
  emit RowSelected(current);
}

void RegisterView::FillColumnsMenu(QMenu& menu) {
  header_->FillMenu(menu);
}

void RegisterView::copy() const {
  if (selection_.Count() == 0) return;
  // The clipboard takes it over.
  QGuiApplication::clipboard()->setMimeData(
      CopiedRows(*model_, selection_, ShownColumns()).release());
}

void RegisterView::ScrollToRow(int row) {
  if (row < 0 || row >= model_->rowCount()) return;
  executeDelayedItemsLayout();
  updateGeometries();
  const int top = verticalHeader()->sectionPosition(row);
  const int bottom = top + verticalHeader()->sectionSize(row);
  QScrollBar* bar = verticalScrollBar();
  if (top < bar->value()) {
    bar->setValue(top);
  } else if (bottom > bar->value() + viewport()->height()) {
    // A table that has no room yet shows the row from its top.
    bar->setValue(std::min(top, bottom - viewport()->height()));
  }
}

RowState RegisterView::StateOf(int row) const {
  RowState state;
  state.is_selected = selection_.Contains(row);
  // The account shown stays the one shown, wherever the focus is.
  state.table_has_focus = hasFocus() || is_list_;
  state.is_demi_bold = is_list_ && state.is_selected;
  state.is_hovered = row == hovered_;
  state.shows_unset_mark = state.is_hovered || row == CurrentRow();
  return state;
}

void RegisterView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  FitColumns();
}

void RegisterView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) viewport()->update();
}

void RegisterView::initViewItemOption(QStyleOptionViewItem* option) const {
  QTableView::initViewItemOption(option);
  LeaveSelectionToTable(*option);
}

void RegisterView::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  TellCurrentCell(*this);
  viewport()->update();
}

void RegisterView::focusOutEvent(QFocusEvent* event) {
  QTableView::focusOutEvent(event);
  viewport()->update();
}

}  // namespace tallyfold::desktop

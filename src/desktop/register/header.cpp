#include "desktop/register/header.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/look/colors.h"
#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/texts.h"
#include "platform/message.h"

namespace tallyfold::desktop {
namespace {

constexpr int kMarkGap = 4;
// Between the heading of a list and its first row, below the rule.
constexpr int kListInset = 6;

bool IsTrailing(const TableColumn& column) {
  return column.content == TableColumn::Content::Amount ||
         column.content == TableColumn::Content::Count;
}

}  // namespace

Header::Header(const TableState& table, const RowModel& model, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), table_(table), model_(model) {
  setSectionsClickable(true);
  setSectionsMovable(true);
  setHighlightSections(false);
  setMouseTracking(true);
  setMinimumSectionSize(kAccountRowHeight);
  SetBodyFont(QWidget::font());
  connect(this, &QHeaderView::sectionResized, this, [this](int section, int, int) {
    if (is_pressed_ && !dragged_) dragged_ = section;
  });
  connect(this, &QHeaderView::sectionClicked, this, [this](int section) {
    if (model_.ColumnAt(section).sorts) emit SortWanted(section);
  });
}

void Header::SetBodyFont(const QFont& body) {
  plain_ = MediumFont(SmallFont(body));
  sorted_ = DemiBoldFont(plain_);
  setFixedHeight(Height());
  update();
}

void Header::SetOuterColumns(int first, int last) {
  first_ = first;
  last_ = last;
  viewport()->update();
}

void Header::MakeBar() {
  is_bar_ = true;
  setFixedHeight(Height());
  update();
}

int Header::Height() const {
  const int height = HeaderHeight(QFontMetrics(plain_));
  // A bar beside it has its rule below it.
  return is_bar_ ? std::max(kBarHeight + 1, height) + kListInset : height;
}

QRect Header::AboveInset(const QRect& rect) const {
  return is_bar_ ? rect.adjusted(0, 0, 0, -kListInset) : rect;
}

QSize Header::sizeHint() const {
  return {QHeaderView::sizeHint().width(), Height()};
}

bool Header::IsSortColumn(int section) const {
  return !table_.HighlightedColumn().empty() &&
         model_.ColumnAt(section).identifier == table_.HighlightedColumn();
}

int Header::Leading(int section) const {
  if (section != first_) return kCellPadding;
  return is_bar_ ? kListPadding : kOuterCellPadding;
}

int Header::Trailing(int section) const {
  if (section != last_) return kCellPadding;
  return is_bar_ ? kOuterCellPadding : kLastCellPadding;
}

int Header::NeededWidth(int section) const {
  const QString title = ToQString(TitleOf(model_.ColumnAt(section)));
  // A rounded width would be cut as too narrow.
  const auto width = static_cast<int>(std::ceil(QFontMetricsF(plain_).horizontalAdvance(title)));
  return Leading(section) + width + Trailing(section);
}

void Header::paintEvent(QPaintEvent* event) {
  {
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), ColorsOf(palette())[is_bar_ ? Role::Window : Role::Base]);
  }
  QHeaderView::paintEvent(event);
  QPainter painter(viewport());
  DrawRuleBelow(painter, AboveInset(viewport()->rect()), ColorsOf(palette())[Role::Rule]);
}

void Header::paintSection(QPainter* painter, const QRect& whole, int section) const {
  const QRect rect = AboveInset(whole);
  if (!rect.isValid() || section >= model_.columnCount()) return;
  const Colors& colors = ColorsOf(palette());
  const TableColumn& column = model_.ColumnAt(section);
  const bool is_sorted = IsSortColumn(section);
  PainterState saved(*painter);
  const bool is_hovered = section == hovered_ && isEnabled();
  if (is_hovered) {
    painter->fillRect(rect,
                      is_bar_ ? colors.Mixed(Role::Window, Role::Text, 0.07) : colors[Role::Hover]);
  }
  if (is_hovered) {
    const QRect edge(isLeftToRight() ? rect.right() : rect.left(), rect.y() + kTightGap, 1,
                     rect.height() - kGap);
    DrawRuleBefore(*painter, edge, colors[Role::Rule]);
  }
  const QRect inner = rect.adjusted(Leading(section), 0, -Trailing(section), 0);
  painter->setFont(is_sorted ? sorted_ : plain_);
  painter->setPen(isEnabled() ? colors[is_sorted ? Role::Text : Role::Dim] : colors[Role::Off]);
  const QFontMetrics metrics = painter->fontMetrics();
  const int mark = is_sorted ? kChevronSize + kMarkGap : 0;
  const QString title = metrics.elidedText(ToQString(TitleOf(column)), Qt::ElideRight,
                                           std::max(0, inner.width() - mark));
  const int width = metrics.horizontalAdvance(title);
  const bool is_trailing = IsTrailing(column);
  int x = inner.left();
  if (is_trailing) x = inner.right() + 1 - width;
  if (column.content == TableColumn::Content::Mark) {
    x = rect.x() + (rect.width() - width) / 2;
  }
  const auto visual = [&](int left, int length) {
    return QStyle::visualRect(layoutDirection(), rect,
                              QRect(left, rect.y(), length, rect.height()));
  };
  painter->drawText(visual(x, width), Qt::AlignCenter | Qt::TextSingleLine, title);
  if (is_sorted) {
    const int left = is_trailing ? x - mark : x + width + kMarkGap;
    DrawIcon(*painter, CenteredIn(visual(left, kChevronSize), kChevronSize, kChevronSize),
             QLatin1String(table_.IndicatesDescending() ? "chevron-down" : "chevron-up"),
             colors[Role::Accent], layoutDirection());
  }
}

void Header::SetHovered(int section) {
  if (hovered_ == section) return;
  hovered_ = section;
  viewport()->update();
}

void Header::mousePressEvent(QMouseEvent* event) {
  is_pressed_ = event->button() == Qt::LeftButton;
  dragged_.reset();
  QHeaderView::mousePressEvent(event);
}

void Header::mouseMoveEvent(QMouseEvent* event) {
  SetHovered(logicalIndexAt(event->position().toPoint()));
  QHeaderView::mouseMoveEvent(event);
}

void Header::mouseReleaseEvent(QMouseEvent* event) {
  QHeaderView::mouseReleaseEvent(event);
  is_pressed_ = false;
  if (const auto dragged = std::exchange(dragged_, std::nullopt)) {
    emit WidthDragged(*dragged, sectionSize(*dragged));
  }
}

void Header::leaveEvent(QEvent* event) {
  SetHovered(-1);
  QHeaderView::leaveEvent(event);
}

void Header::contextMenuEvent(QContextMenuEvent* event) {
  auto* menu = new QMenu(this);
  menu->setObjectName(QStringLiteral("columns_Menu"));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  FillMenu(*menu);
  menu->popup(event->globalPos());
}

void Header::FillMenu(QMenu& menu) {
  for (int section = 0; section < model_.columnCount(); ++section) {
    const TableColumn& column = model_.ColumnAt(section);
    const bool is_shown = !isSectionHidden(section);
    QAction* action = menu.addAction(WithoutMnemonics(ToQString(TitleOf(column))));
    action->setCheckable(true);
    action->setChecked(is_shown);
    action->setEnabled(!is_shown || table_.Columns().size() > 1);
    connect(action, &QAction::triggered, this,
            [this, is_shown, identifier = ToQString(column.identifier)] {
              if (is_shown) {
                emit ColumnHideWanted(identifier);
              } else {
                emit ColumnShowWanted(identifier);
              }
            });
  }
  menu.addSeparator();
  for (int section = 0; section < model_.columnCount(); ++section) {
    const TableColumn& column = model_.ColumnAt(section);
    if (!column.sorts) continue;
    QAction* action =
        menu.addAction(WithoutMnemonics(ToQString(Message("Sort by {1}", {TitleOf(column)}))));
    action->setCheckable(true);
    action->setChecked(IsSortColumn(section));
    connect(action, &QAction::triggered, this, [this, section] { emit SortWanted(section); });
  }
}

bool Header::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const int section = logicalIndexAt(help->pos());
    const QString title = section < 0 ? QString() : ToQString(TitleOf(model_.ColumnAt(section)));
    const int mark = section >= 0 && IsSortColumn(section) ? kChevronSize + kMarkGap : 0;
    const int needed =
        QFontMetrics(sorted_).horizontalAdvance(title) + mark + kCellPadding + kLastCellPadding;
    const bool is_cut = section >= 0 && needed > sectionSize(section);
    QToolTip::showText(help->globalPos(), is_cut ? PlainToolTip(title) : QString(), viewport());
    return true;
  }
  return QHeaderView::viewportEvent(event);
}

}  // namespace tallyfold::desktop

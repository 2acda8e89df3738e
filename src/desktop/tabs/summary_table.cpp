#include "desktop/tabs/summary_table.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollArea>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/look/colors.h"
#include "desktop/look/figures.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"

namespace tallyfold::desktop {
namespace {

using Kind = SummaryTable::Column::Kind;

constexpr int kBarThickness = 10;
constexpr int kShareWidth = 28;
constexpr int kShareThickness = 6;
constexpr int kLeastBarWidth = 120;
constexpr double kBarRadius = 2.0;
constexpr int kPageRows = 10;
constexpr int kLeastLetters = 8;

int WidthOf(Kind kind, const QFontMetrics& metrics) {
  switch (kind) {
    case Kind::Count:
      return metrics.horizontalAdvance(QLatin1String("100,000")) + 2 * kCellPadding;
    case Kind::Figure:
      return metrics.horizontalAdvance(QLatin1String("-$000,000.00")) + 2 * kCellPadding;
    case Kind::Share:
      return metrics.horizontalAdvance(QLatin1String("100.0%")) + kShareWidth + 3 * kCellPadding;
    case Kind::Bar:
      return kLeastBarWidth + 2 * kCellPadding;
    case Kind::Text:
      break;
  }
  return metrics.averageCharWidth() * kLeastLetters + 2 * kCellPadding;
}

bool IsFlexible(Kind kind) {
  return kind == Kind::Text || kind == Kind::Bar;
}

}  // namespace

SummaryTable::SummaryTable(Content content, QWidget* parent)
    : QWidget(parent), content_(std::move(content)) {
  setAccessibleName(content_.name);
  setFocusPolicy(content_.rows > 0 ? Qt::StrongFocus : Qt::NoFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

int SummaryTable::HeadHeight() const {
  return HeaderHeight(QFontMetrics(SmallFont(font())));
}

int SummaryTable::LineHeight() const {
  return RowHeight(fontMetrics());
}

int SummaryTable::LeastWidth(const Column& column) const {
  const QFontMetrics titles(MediumFont(SmallFont(font())));
  return std::max(WidthOf(column.kind, fontMetrics()),
                  titles.horizontalAdvance(column.title) + 2 * kCellPadding);
}

QSize SummaryTable::sizeHint() const {
  int width = 0;
  for (const Column& column : content_.columns) width += LeastWidth(column);
  return {width, HeadHeight() + content_.rows * LineHeight()};
}

QRect SummaryTable::LineRect(int row) const {
  return {0, HeadHeight() + row * LineHeight(), width(), LineHeight()};
}

std::vector<QRect> SummaryTable::Cells(const QRect& line) const {
  int needed = 0;
  int flexible = 0;
  for (const Column& column : content_.columns) {
    needed += LeastWidth(column);
    flexible += IsFlexible(column.kind) ? 1 : 0;
  }
  const int spare = flexible > 0 ? std::max(0, line.width() - needed) / flexible : 0;
  std::vector<QRect> cells;
  int x = line.left();
  for (const Column& column : content_.columns) {
    const int width = LeastWidth(column) + (IsFlexible(column.kind) ? spare : 0);
    const QRect cell(x, line.top(), width, line.height());
    cells.push_back(QStyle::visualRect(layoutDirection(), rect(), cell));
    x += width;
  }
  return cells;
}

void SummaryTable::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  if (event->rect().top() < HeadHeight()) PaintHead(painter);
  const int first = std::max(0, (event->rect().top() - HeadHeight()) / LineHeight());
  const int last =
      std::min(content_.rows - 1, (event->rect().bottom() - HeadHeight()) / LineHeight());
  for (int row = first; row <= last; ++row) PaintLine(painter, row);
}

void SummaryTable::PaintHead(QPainter& painter) const {
  const Colors& colors = ColorsOf(palette());
  const QRect head(0, 0, width(), HeadHeight());
  painter.setFont(MediumFont(SmallFont(font())));
  painter.setPen(colors[Role::Dim]);
  const std::vector<QRect> cells = Cells(head);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const bool is_leading = content_.columns[i].kind == Kind::Text;
    painter.drawText(
        cells[i].adjusted(kCellPadding, 0, -kCellPadding, 0),
        static_cast<int>(is_leading ? Qt::AlignLeading | Qt::AlignVCenter
                                    : Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter),
        content_.columns[i].title);
  }
  DrawRuleBelow(painter, head, colors[Role::Rule]);
}

void SummaryTable::PaintLine(QPainter& painter, int row) const {
  const Colors& colors = ColorsOf(palette());
  const QRect line = LineRect(row);
  const bool is_current = row == current_ && hasFocus();
  if (is_current) painter.fillRect(line, colors[Role::Selection]);
  const bool is_total = content_.ends_with_total && row == content_.rows - 1;
  painter.setFont(is_total ? DemiBoldFont(font()) : font());
  const Figures figures(painter.font());
  const std::vector<QRect> cells = Cells(line);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const QRect cell = cells[i].adjusted(kCellPadding, 0, -kCellPadding, 0);
    const int column = static_cast<int>(i);
    painter.setPen(colors[Role::Text]);
    switch (content_.columns[i].kind) {
      case Kind::Text:
        painter.drawText(cell, Qt::AlignLeading | Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(content_.text(row, column),
                                                          Qt::ElideRight, cell.width()));
        break;
      case Kind::Bar:
        if (!is_total) PaintBar(painter, cell, content_.bar(row));
        break;
      case Kind::Share:
        PaintShare(painter, cell, content_.bar(row));
        [[fallthrough]];
      case Kind::Count:
        if (!is_total) painter.setPen(colors[Role::Dim]);
        [[fallthrough]];
      case Kind::Figure:
        figures.Draw(painter, cell, content_.text(row, column), Qt::AlignRight);
        break;
    }
  }
  DrawRuleBelow(painter, line, colors[is_total ? Role::Rule : Role::Hair]);
  if (!is_current) return;
  QRect bar = line;
  bar.setWidth(kSelectionBar);
  FillSnapped(painter, QStyle::visualRect(layoutDirection(), rect(), bar), colors[Role::Accent]);
}

void SummaryTable::PaintBar(QPainter& painter, const QRect& cell, double value) const {
  const PainterState state(painter);
  painter.setRenderHint(QPainter::Antialiasing);
  const Colors& colors = ColorsOf(palette());
  const bool has_both = content_.has_negative_bars && content_.has_positive_bars;
  const double room = has_both ? cell.width() / 2.0 : cell.width() - 1.0;
  const double axis = cell.left() + (has_both                     ? room
                                     : content_.has_negative_bars ? cell.width() - 1.0
                                                                  : 0.0);
  const double length = std::fabs(value) * room;
  const double top = cell.center().y() - kBarThickness / 2.0;
  painter.setPen(Qt::NoPen);
  painter.setBrush(colors[value < 0.0 ? Role::NegativeBar : Role::Bar]);
  const QRectF bar(value < 0.0 ? axis - length : axis, top, length, kBarThickness);
  if (length > 0.0) painter.drawRoundedRect(bar, kBarRadius, kBarRadius);
  DrawRuleBefore(painter, QRectF(axis, top - 3, 1, kBarThickness + 6), colors[Role::Edge]);
}

void SummaryTable::PaintShare(QPainter& painter, const QRect& cell, double share) const {
  const PainterState state(painter);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const Colors& colors = ColorsOf(palette());
  QRectF bar(cell.left(), cell.center().y() - kShareThickness / 2.0, kShareWidth, kShareThickness);
  painter.setBrush(colors[Role::Hair]);
  painter.drawRoundedRect(bar, kBarRadius, kBarRadius);
  if (share <= 0.0) return;
  bar.setWidth(std::max(std::min(share, 1.0) * kShareWidth, kBarRadius));
  painter.setBrush(colors[Role::Bar]);
  painter.drawRoundedRect(bar, kBarRadius, kBarRadius);
}

void SummaryTable::GoTo(int row) {
  if (content_.rows == 0) return;
  current_ = std::clamp(row, 0, content_.rows - 1);
  QStringList words;
  for (int i = 0; i < static_cast<int>(content_.columns.size()); ++i) {
    if (content_.columns[static_cast<std::size_t>(i)].kind == Kind::Bar) continue;
    words.append(content_.text(current_, i));
  }
  setAccessibleDescription(words.join(QLatin1String(", ")));
  for (QWidget* above = parentWidget(); above != nullptr; above = above->parentWidget()) {
    auto* area = qobject_cast<QScrollArea*>(above);
    if (area == nullptr) continue;
    const QPoint middle = mapTo(area->widget(), LineRect(current_).center());
    area->ensureVisible(middle.x(), middle.y(), 0, LineHeight());
    break;
  }
  update();
}

void SummaryTable::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
      return GoTo(current_ - 1);
    case Qt::Key_Down:
      return GoTo(current_ + 1);
    case Qt::Key_PageUp:
      return GoTo(current_ - kPageRows);
    case Qt::Key_PageDown:
      return GoTo(current_ + kPageRows);
    case Qt::Key_Home:
      return GoTo(0);
    case Qt::Key_End:
      return GoTo(content_.rows - 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return Activate(current_);
    default:
      QWidget::keyPressEvent(event);
  }
}

void SummaryTable::mousePressEvent(QMouseEvent* event) {
  const int y = event->position().toPoint().y() - HeadHeight();
  if (y >= 0) GoTo(y / LineHeight());
}

void SummaryTable::mouseDoubleClickEvent(QMouseEvent* event) {
  const int y = event->position().toPoint().y() - HeadHeight();
  if (y >= 0) Activate(y / LineHeight());
}

void SummaryTable::Activate(int row) {
  if (row >= 0 && row < content_.rows && content_.activated) content_.activated(row);
}

void SummaryTable::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  if (current_ < 0 && event->reason() != Qt::MouseFocusReason) GoTo(0);
  update();
}

void SummaryTable::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

}  // namespace tallyfold::desktop

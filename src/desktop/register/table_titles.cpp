#include "desktop/register/table_titles.h"

#include <QPainter>
#include <QStyle>

#include "desktop/look/colors.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"

namespace tallyfold::desktop {

TableTitles::TableTitles(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  setSectionsClickable(false);
  setHighlightSections(false);
  setFocusPolicy(Qt::NoFocus);
  setMinimumSectionSize(kCellPadding);
  setFont(MediumFont(SmallFont(parent->font())));
}

QSize TableTitles::sizeHint() const {
  return {QHeaderView::sizeHint().width(), HeaderHeight(QFontMetrics(font()))};
}

void TableTitles::paintSection(QPainter* painter, const QRect& rect, int section) const {
  const Colors& colors = ColorsOf(palette());
  PainterState state(*painter);
  painter->fillRect(rect, colors[Role::Base]);
  painter->setFont(font());
  painter->setPen(colors[Role::Dim]);
  const int first = section == 0 ? kOuterCellPadding : kCellPadding;
  const auto alignment =
      model()->headerData(section, Qt::Horizontal, Qt::TextAlignmentRole).toInt();
  painter->drawText(
      QStyle::visualRect(layoutDirection(), rect, rect.adjusted(first, 0, -kCellPadding, 0)),
      alignment, model()->headerData(section, Qt::Horizontal).toString());
  DrawRuleBelow(*painter, rect, colors[Role::Rule]);
}

void TableTitles::paintEvent(QPaintEvent* event) {
  QHeaderView::paintEvent(event);
  QPainter painter(viewport());
  const Colors& colors = ColorsOf(palette());
  const QRect rest = viewport()->rect().adjusted(length(), 0, 0, 0);
  if (rest.isEmpty()) return;
  painter.fillRect(rest, colors[Role::Base]);
  DrawRuleBelow(painter, rest, colors[Role::Rule]);
}

}  // namespace tallyfold::desktop

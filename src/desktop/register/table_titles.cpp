#include "desktop/register/table_titles.h"

#include <QPainter>
#include <QStyle>

#include "desktop/look/colors.h"
#include "desktop/look/icons.h"
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
  const bool is_sorted = section == sorted_;
  painter->setFont(is_sorted ? DemiBoldFont(font()) : font());
  painter->setPen(colors[is_sorted ? Role::Text : Role::Dim]);
  const int first = section == 0 ? kOuterCellPadding : kCellPadding;
  const auto alignment =
      model()->headerData(section, Qt::Horizontal, Qt::TextAlignmentRole).toInt();
  const QRect inner = rect.adjusted(first, 0, -kCellPadding, 0);
  const QString title = model()->headerData(section, Qt::Horizontal).toString();
  const auto visual = [this, &rect](const QRect& of) {
    return QStyle::visualRect(layoutDirection(), rect, of);
  };
  painter->drawText(visual(inner), alignment, title);
  if (is_sorted) {
    const QRect mark(inner.left() + painter->fontMetrics().horizontalAdvance(title) + kTightGap,
                     rect.y(), kChevronSize, rect.height());
    DrawIcon(*painter, CenteredIn(visual(mark), kChevronSize, kChevronSize),
             QLatin1String("chevron-up"), colors[Role::Accent], layoutDirection());
  }
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

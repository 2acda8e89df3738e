#include "desktop/tabs/summary_list_delegate.h"

#include <QPainter>
#include <QStyle>
#include <QWidget>

#include "desktop/look/colors.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"

namespace tallyfold::desktop {

void SummaryListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
  const PainterState kept(*painter);
  const Colors& colors = ColorsOf(option.palette);
  const QRect& row = option.rect;
  const bool is_selected = option.state.testFlag(QStyle::State_Selected);
  const bool has_focus = option.widget != nullptr && option.widget->hasFocus();
  const bool is_current = is_selected && has_focus;
  if (is_selected) {
    FillSnapped(*painter, row, colors[has_focus ? Role::Selection : Role::InactiveSelection]);
  } else if (option.state.testFlag(QStyle::State_MouseOver)) {
    FillSnapped(*painter, row, colors[Role::Hover]);
  }
  painter->setFont(option.font);
  painter->setPen(colors[Role::Text]);
  const QRect text = QStyle::visualRect(option.direction, row,
                                        row.adjusted(kOuterCellPadding, 0, -kCellPadding, 0));
  painter->drawText(text, Qt::AlignVCenter | Qt::AlignLeft,
                    option.fontMetrics.elidedText(index.data().toString().trimmed(), Qt::ElideRight,
                                                  text.width()));
  DrawRuleBelow(*painter, row, colors[is_current ? Role::Accent : Role::Hair]);
  if (is_current) {
    DrawRuleBelow(*painter, QRect(row.x(), row.y(), row.width(), 1), colors[Role::Accent]);
  }
  if (is_selected) {
    const QRect bar(row.x(), row.y(), kSelectionBar, row.height());
    FillSnapped(*painter, QStyle::visualRect(option.direction, row, bar),
                colors[has_focus ? Role::Accent : Role::Edge]);
  }
}

// The text stays where it is while it is renamed.
void SummaryListDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                               const QModelIndex& /*index*/) const {
  editor->setGeometry(option.rect.adjusted(kCellPadding - 1, 0, 0, 0));
}

}  // namespace tallyfold::desktop

#include "desktop/look/rule_line.h"

#include <QPainter>

#include "desktop/look/colors.h"
#include "desktop/look/painting.h"

namespace tallyfold::desktop {

RuleLine::RuleLine(QWidget* parent, Qt::Orientation orientation)
    : QWidget(parent), orientation_(orientation) {
  if (orientation == Qt::Horizontal) {
    setFixedHeight(1);
  } else {
    setFixedWidth(1);
  }
}

void RuleLine::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QColor& color = ColorsOf(palette())[Role::Rule];
  if (orientation_ == Qt::Horizontal) {
    DrawRuleBelow(painter, rect(), color);
  } else {
    DrawRuleBefore(painter, rect(), color);
  }
}

}  // namespace tallyfold::desktop

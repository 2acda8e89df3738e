#include "desktop/look/rule_line.h"

#include <QPainter>

#include "desktop/look/colors.h"
#include "desktop/look/painting.h"

namespace tallyfold::desktop {

RuleLine::RuleLine(QWidget* parent) : QWidget(parent) {
  setFixedHeight(1);
}

void RuleLine::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  DrawRuleBelow(painter, rect(), ColorsOf(palette())[Role::Rule]);
}

}  // namespace tallyfold::desktop

#include "desktop/sheets/chip.h"

#include <QPainter>
#include <QStyle>
#include <algorithm>

#include "desktop/look/colors.h"
#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"

namespace tallyfold::desktop {
namespace {

constexpr int kChipPadding = 12;
constexpr int kTextGap = 6;
constexpr int kSpaceAbove = 11;

}  // namespace

Chip::Chip(QLatin1String icon, bool is_warning, QWidget* parent)
    : QAbstractButton(parent), icon_(icon), is_warning_(is_warning) {
  setCheckable(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Chip::sizeHint() const {
  const QFontMetrics metrics(font());
  const int height = std::max(28, (metrics.height() + kSpaceAbove) / 2 * 2);
  return {2 * kChipPadding + kIconSize + kTextGap + metrics.horizontalAdvance(text()), height};
}

void Chip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Colors& colors = ColorsOf(palette());
  const bool is_marked = is_warning_ && isChecked();
  const double share = isDown() ? 0.10 : underMouse() ? 0.05 : 0.0;
  const Role ground = is_marked ? Role::WarningFill : Role::Raised;
  const QColor outline = hasFocus()    ? colors[Role::Accent]
                         : is_marked   ? colors[Role::Warning]
                         : isChecked() ? colors[Role::Accent]
                                       : colors.ButtonOutline();
  DrawBox(painter, rect(), height() / 2.0, colors.Mixed(ground, Role::Text, share), outline,
          hasFocus() ? kRing : 1.0);
  const QRect icon =
      QStyle::visualRect(layoutDirection(), rect(),
                         QRect(kChipPadding, (height() - kIconSize) / 2, kIconSize, kIconSize));
  DrawIcon(painter, icon, icon_, is_warning_ ? colors[Role::Warning] : colors[Role::Dim],
           layoutDirection());
  painter.setPen(is_warning_ ? colors[Role::Warning] : colors[Role::Text]);
  const QRect label = QStyle::visualRect(
      layoutDirection(), rect(),
      rect().adjusted(kChipPadding + kIconSize + kTextGap, 0, -kChipPadding + 1, 0));
  painter.drawText(label, Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine, text());
}

}  // namespace tallyfold::desktop

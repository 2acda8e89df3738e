#include "desktop/sheets/suggestion_line.h"

#include <QKeySequence>
#include <QPainter>
#include <QStyle>

#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"

namespace tallyfold::desktop {
namespace {

constexpr int kPadding = 8;
constexpr int kCapMargin = 5;  // above and below the picture of the key

QString KeyName() {
  return QKeySequence(Qt::CTRL | Qt::Key_Return).toString(QKeySequence::NativeText);
}

}  // namespace

SuggestionLine::SuggestionLine(QWidget* parent) : LDGRButton(parent) {
  setFocusPolicy(Qt::NoFocus);
  setAutoDefault(false);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  setEnabled(false);
  SetKeyEquivalents(
      {QKeySequence(Qt::CTRL | Qt::Key_Return), QKeySequence(Qt::CTRL | Qt::Key_Enter)});
}

void SuggestionLine::Offer(const QString& text) {
  setText(text);
  setAccessibleName(text);
  setToolTip(text);
  setEnabled(!text.isEmpty());
  update();
}

QSize SuggestionLine::sizeHint() const {
  return {0, ControlHeight(fontMetrics())};
}

QSize SuggestionLine::minimumSizeHint() const {
  return sizeHint();
}

void SuggestionLine::paintEvent(QPaintEvent*) {
  if (text().isEmpty()) return;
  QPainter painter(this);
  const Colors& colors = ColorsOf(palette());
  const auto turned = [this](const QRect& part) {
    return QStyle::visualRect(layoutDirection(), rect(), part);
  };
  painter.fillRect(rect(), colors[Role::HintFill]);
  const QRect bulb(kPadding, (height() - kIconSize) / 2, kIconSize, kIconSize);
  DrawIcon(painter, turned(bulb), QLatin1String("hint"), colors[Role::Accent], layoutDirection());

  const QFont small = SmallFont(font());
  const QString key = KeyName();
  const int cap_width = QFontMetrics(small).horizontalAdvance(key) + 2 * kPadding;
  const QRect cap(width() - kPadding - cap_width, kCapMargin, cap_width, height() - 2 * kCapMargin);
  DrawBox(painter, turned(cap), kSmallRadius, colors[Role::Raised], colors.ButtonOutline());
  painter.setFont(small);
  painter.setPen(colors[Role::Dim]);
  painter.drawText(turned(cap), Qt::AlignCenter, key);

  painter.setFont(font());
  painter.setPen(colors[Role::Text]);
  const int left = bulb.right() + kPadding;
  const QRect offered(left, 0, cap.left() - kPadding - left, height());
  painter.drawText(turned(offered), Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine,
                   fontMetrics().elidedText(text(), Qt::ElideRight, offered.width()));
}

}  // namespace tallyfold::desktop

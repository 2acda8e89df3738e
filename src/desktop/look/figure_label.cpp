#include "desktop/look/figure_label.h"

#include <QPainter>
#include <cmath>

#include "desktop/look/figures.h"

namespace tallyfold::desktop {
namespace {

QString WithMinuses(QString text) {
  for (qsizetype i = 0; i + 1 < text.size(); ++i) {
    const bool begins = i == 0 || text[i - 1] == QLatin1Char(' ');
    if (begins && text[i] == QLatin1Char('-') && text[i + 1] != QLatin1Char(' ')) {
      text[i] = QChar(0x2212);
    }
  }
  return text;
}

}  // namespace

FigureLabel::FigureLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
}

QSize FigureLabel::sizeHint() const {
  const int width = static_cast<int>(std::ceil(Figures(font()).Width(WithMinuses(text()))));
  const QMargins margins = contentsMargins();
  return {width + margins.left() + margins.right(),
          fontMetrics().height() + margins.top() + margins.bottom()};
}

void FigureLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(
      palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, foregroundRole()));
  const Qt::Alignment side = QStyle::visualAlignment(layoutDirection(), alignment());
  Figures(font()).Draw(painter, contentsRect(), WithMinuses(text()),
                       (side & Qt::AlignRight) != 0 ? Qt::AlignRight : Qt::AlignLeft);
}

}  // namespace tallyfold::desktop

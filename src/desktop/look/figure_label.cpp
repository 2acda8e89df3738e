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

// As many characters of the text as fit, and an ellipsis.
QString Cut(const QString& text, const Figures& figures, double room) {
  constexpr QChar kEllipsis(0x2026);
  qsizetype fitting = 0;
  qsizetype beyond = text.size();
  while (beyond - fitting > 1) {
    const qsizetype half = (fitting + beyond) / 2;
    (figures.Width(text.left(half) + kEllipsis) <= room ? fitting : beyond) = half;
  }
  if (fitting > 0 && text[fitting - 1].isHighSurrogate()) --fitting;
  return text.left(fitting).trimmed() + kEllipsis;
}

}  // namespace

FigureLabel::FigureLabel(QWidget* parent, const char* name) : QLabel(parent) {
  setObjectName(QLatin1String(name));
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
  const Figures figures(font());
  const QRect room = contentsRect();
  QString shown = WithMinuses(text());
  if (std::ceil(figures.Width(shown)) > room.width()) shown = Cut(shown, figures, room.width());
  figures.Draw(painter, room, shown, (side & Qt::AlignRight) != 0 ? Qt::AlignRight : Qt::AlignLeft);
}

}  // namespace tallyfold::desktop

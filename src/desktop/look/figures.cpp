#include "desktop/look/figures.h"

#include <QGlyphRun>
#include <QList>
#include <algorithm>
#include <cmath>

namespace tallyfold::desktop {
namespace {

constexpr QChar kMinus(0x2212);
constexpr double kSameWidth = 0.01;

bool IsDigit(QChar character) {
  return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

}  // namespace

QString WithMinus(QString figure) {
  if (figure.startsWith(QLatin1Char('-'))) figure[0] = kMinus;
  return figure;
}

Figures::Figures(const QFont& font) : font_(font), metrics_(font), raw_(QRawFont::fromFont(font)) {
  double narrowest = metrics_.horizontalAdvance(QLatin1Char('0'));
  for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
    const double advance = metrics_.horizontalAdvance(QChar(digit));
    digit_ = std::max(digit_, advance);
    narrowest = std::min(narrowest, advance);
  }
  are_even_ = digit_ - narrowest < kSameWidth;
}

double Figures::AdvanceOf(QChar character) const {
  return IsDigit(character) ? digit_ : metrics_.horizontalAdvance(character);
}

double Figures::Width(const QString& text) const {
  const QString shown = WithMinus(text);
  if (are_even_) return metrics_.horizontalAdvance(shown);
  double width = 0.0;
  for (const QChar character : shown) width += AdvanceOf(character);
  return width;
}

void Figures::Draw(QPainter& painter, const QRectF& rect, const QString& text,
                   Qt::Alignment alignment) const {
  const QString shown = WithMinus(text);
  const double left = alignment.testFlag(Qt::AlignRight) ? rect.right() - Width(text) : rect.left();
  const double top = rect.top() + (rect.height() - metrics_.height()) / 2;
  const QPointF baseline(left, std::round(top + metrics_.ascent()));
  if (are_even_) {
    painter.setFont(font_);
    painter.drawText(baseline, shown);
  } else if (!DrawGlyphs(painter, baseline, shown)) {
    DrawCharacters(painter, baseline, shown);
  }
}

bool Figures::DrawGlyphs(QPainter& painter, const QPointF& baseline, const QString& text) const {
  const QList<quint32> glyphs = raw_.glyphIndexesForString(text);
  if (glyphs.size() != text.size() || glyphs.contains(0)) return false;
  QList<QPointF> places;
  places.reserve(text.size());
  double x = 0.0;
  for (const QChar character : text) {
    const double advance = AdvanceOf(character);
    const double own = IsDigit(character) ? metrics_.horizontalAdvance(character) : advance;
    places.append(QPointF(x + (advance - own) / 2, 0.0));
    x += advance;
  }
  QGlyphRun run;
  run.setRawFont(raw_);
  run.setGlyphIndexes(glyphs);
  run.setPositions(places);
  painter.drawGlyphRun(baseline, run);
  return true;
}

void Figures::DrawCharacters(QPainter& painter, QPointF baseline, const QString& text) const {
  painter.setFont(font_);
  for (qsizetype i = 0; i < text.size(); ++i) {
    const qsizetype length = text[i].isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
    const QString character = text.mid(i, length);
    double advance = 0.0;
    for (const QChar unit : character) advance += AdvanceOf(unit);
    const double own = metrics_.horizontalAdvance(character);
    painter.drawText(baseline + QPointF((advance - own) / 2, 0.0), character);
    baseline.rx() += advance;
    i += length - 1;
  }
}

}  // namespace tallyfold::desktop

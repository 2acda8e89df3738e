#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPointF>
#include <QRawFont>
#include <QRectF>
#include <QString>

namespace tallyfold::desktop {

// Draws amounts, days and counts so that digits stand below each other in any font: every digit in
// the middle of a cell as wide as the widest one, every other character with its own advance. A
// leading hyphen is drawn as a minus; the text itself stays as it is.
class Figures {
 public:
  explicit Figures(const QFont& font);

  [[nodiscard]] double Width(const QString& text) const;
  // In one line in the middle of the rectangle's height, flush with its left or right edge,
  // whatever the direction of the layout; beyond the other edge where it is too wide.
  void Draw(QPainter& painter, const QRectF& rect, const QString& text,
            Qt::Alignment alignment) const;
  [[nodiscard]] const QFont& Font() const noexcept { return font_; }

 private:
  [[nodiscard]] double AdvanceOf(QChar character) const;
  // False where the font lacks a character.
  bool DrawGlyphs(QPainter& painter, const QPointF& baseline, const QString& text) const;
  void DrawCharacters(QPainter& painter, QPointF baseline, const QString& text) const;

  QFont font_;
  QFontMetricsF metrics_;
  QRawFont raw_;
  double digit_ = 0.0;  // of the widest one
  bool are_even_ = true;
};

// With a minus in place of a leading hyphen.
[[nodiscard]] QString WithMinus(QString figure);

}  // namespace tallyfold::desktop

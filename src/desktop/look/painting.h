#pragma once

#include <QColor>
#include <QPainter>
#include <QRect>
#include <QRectF>
#include <QString>

namespace tallyfold::desktop {

// Keeps a painter's state for the length of a block.
class PainterState {
 public:
  explicit PainterState(QPainter& painter) : painter_(painter) { painter_.save(); }
  ~PainterState() { painter_.restore(); }
  PainterState(const PainterState&) = delete;
  PainterState& operator=(const PainterState&) = delete;

 private:
  QPainter& painter_;
};

// How many device pixels a rule is thick at a scale.
[[nodiscard]] int RuleThickness(double scale);

// A horizontal rule whose lower edge is at the rectangle's, on whole device pixels.
void DrawRuleBelow(QPainter& painter, const QRectF& rect, const QColor& color);
// A vertical rule whose left edge is at the rectangle's.
void DrawRuleBefore(QPainter& painter, const QRectF& rect, const QColor& color);
// A frame of rules inside the rectangle.
void DrawFrame(QPainter& painter, const QRectF& rect, const QColor& color);
// Fills the device pixels that the rectangle comes to, none of them by halves.
void FillSnapped(QPainter& painter, const QRectF& rect, const QColor& color);

// A rounded box with an outline inside the rectangle; an invalid colour leaves that part out.
void DrawBox(QPainter& painter, const QRectF& rect, double radius, const QColor& fill,
             const QColor& outline, double thickness = 1.0);
// The rectangle of an icon that stands in the middle of another, on whole device pixels at scale 1.
[[nodiscard]] QRect CenteredIn(const QRect& rect, int width, int height);

}  // namespace tallyfold::desktop

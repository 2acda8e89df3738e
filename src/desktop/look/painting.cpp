#include "desktop/look/painting.h"

#include <QPaintDevice>
#include <algorithm>
#include <cmath>

namespace tallyfold::desktop {
namespace {

// Draws in device pixels what stands upright in the painter's.
void FillDevice(QPainter& painter, const QRectF& device, const QColor& color) {
  if (device.isEmpty()) return;
  PainterState state(painter);
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.fillRect(painter.deviceTransform().inverted().mapRect(device), color);
}

QRectF InDevice(const QPainter& painter, const QRectF& rect) {
  return painter.deviceTransform().mapRect(rect);
}

double ScaleOf(const QPainter& painter) {
  return painter.deviceTransform().m11();
}

}  // namespace

int RuleThickness(double scale) {
  return std::max(1, static_cast<int>(std::floor(scale)));
}

void DrawRuleBelow(QPainter& painter, const QRectF& rect, const QColor& color) {
  const QRectF device = InDevice(painter, rect);
  const int thickness = RuleThickness(ScaleOf(painter));
  const double bottom = std::round(device.bottom());
  const double left = std::round(device.left());
  FillDevice(
      painter,
      {left, bottom - thickness, std::round(device.right()) - left, static_cast<double>(thickness)},
      color);
}

void DrawRuleBefore(QPainter& painter, const QRectF& rect, const QColor& color) {
  const QRectF device = InDevice(painter, rect);
  const double top = std::round(device.top());
  FillDevice(painter,
             {std::round(device.left()), top, static_cast<double>(RuleThickness(ScaleOf(painter))),
              std::round(device.bottom()) - top},
             color);
}

void DrawFrame(QPainter& painter, const QRectF& rect, const QColor& color) {
  const QRectF device = InDevice(painter, rect);
  const double thickness = RuleThickness(ScaleOf(painter));
  const double left = std::round(device.left());
  const double right = std::round(device.right());
  const double top = std::round(device.top());
  const double bottom = std::round(device.bottom());
  FillDevice(painter, {left, top, right - left, thickness}, color);
  FillDevice(painter, {left, bottom - thickness, right - left, thickness}, color);
  FillDevice(painter, {left, top, thickness, bottom - top}, color);
  FillDevice(painter, {right - thickness, top, thickness, bottom - top}, color);
}

void FillSnapped(QPainter& painter, const QRectF& rect, const QColor& color) {
  const QRectF device = InDevice(painter, rect);
  const QPointF first(std::round(device.left()), std::round(device.top()));
  FillDevice(painter, {first, QPointF(std::round(device.right()), std::round(device.bottom()))},
             color);
}

void DrawBox(QPainter& painter, const QRectF& rect, double radius, const QColor& fill,
             const QColor& outline, double thickness) {
  PainterState state(painter);
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setPen(outline.isValid() ? QPen(outline, thickness) : QPen(Qt::NoPen));
  painter.setBrush(fill.isValid() ? QBrush(fill) : QBrush(Qt::NoBrush));
  const double inset = outline.isValid() ? thickness / 2 : 0.0;
  const double inner = std::max(0.0, radius - inset);
  painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), inner, inner);
}

QRect CenteredIn(const QRect& rect, int width, int height) {
  return {rect.x() + (rect.width() - width) / 2, rect.y() + (rect.height() - height) / 2, width,
          height};
}

}  // namespace tallyfold::desktop

#include "desktop/print/page_painter.h"

#include <QRectF>
#include <algorithm>
#include <cmath>
#include <cstddef>

#include "desktop/look/colors.h"
#include "desktop/look/painting.h"
#include "desktop/print/print_metric.h"

namespace tallyfold::desktop {
namespace {

// In points, by weight.
constexpr double kThicknesses[] = {0.4, 0.5, 1.0};

void DrawRule(QPainter& painter, const Rule& rule, const PrintMetric& metric) {
  const bool is_hair = rule.weight == RuleWeight::Hair;
  // No rule gets lost between the dots of a coarse device.
  const double dot = 1.0 / std::abs(painter.deviceTransform().m22());
  const double thickness = std::max(kThicknesses[static_cast<std::size_t>(rule.weight)], dot);
  const double middle = is_hair ? rule.y : rule.y + metric.RuleHeight() / 2;
  FillSnapped(painter, {rule.x, middle - thickness / 2, rule.width, thickness},
              is_hair ? LightColors()[Role::Rule] : QColor(Qt::black));
}

void DrawRun(QPainter& painter, const TextRun& run, const PrintMetric& metric) {
  const QPointF baseline(run.x * PrintMetric::kUnitsPerPoint,
                         run.y * PrintMetric::kUnitsPerPoint + metric.Baseline(run.style));
  painter.setFont(metric.FontOf(run.style));
  painter.drawText(baseline, PrintMetric::Shown(run.text));
}

}  // namespace

void DrawPage(QPainter& painter, const Page& page, const PrintMetric& metric) {
  PainterState state(painter);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor bar_color = LightColors()[Role::Bar];
  for (const Bar& bar : page.bars) {
    FillSnapped(painter, {bar.x, bar.y, bar.width, bar.height}, bar_color);
  }
  for (const Rule& rule : page.rules) DrawRule(painter, rule, metric);
  constexpr double kPoint = 1.0 / PrintMetric::kUnitsPerPoint;
  painter.scale(kPoint, kPoint);
  painter.setPen(Qt::black);
  // The page has its places from left to right.
  painter.setLayoutDirection(Qt::LeftToRight);
  for (const TextRun& run : page.runs) DrawRun(painter, run, metric);
}

}  // namespace tallyfold::desktop

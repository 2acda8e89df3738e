#include "desktop/progress_bar.h"

#include <QPainter>
#include <cmath>

#include "desktop/look/colors.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr int kThickness = 3;

}  // namespace

ProgressBar::ProgressBar(QWidget* parent) : QWidget(parent) {
  setObjectName(QLatin1String("progress_Bar"));
  setAccessibleName(Text("Progress"));
  // So that painting it paints nothing else.
  setAttribute(Qt::WA_OpaquePaintEvent);
  hide();
}

void ProgressBar::ShowAt(int top, std::uint64_t done, std::uint64_t total) {
  part_ = total == 0 ? 1.0 : static_cast<double>(done) / static_cast<double>(total);
  setGeometry(0, top, parentWidget()->width(), kThickness);
  raise();
  show();
  repaint();
}

void ProgressBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Colors& colors = ColorsOf(palette());
  const int filled = static_cast<int>(std::lround(part_ * width()));
  const QRect whole = rect();
  const QRect done(whole.topLeft(), QSize(filled, height()));
  painter.fillRect(whole, colors[Role::Rule]);
  painter.fillRect(style()->visualRect(layoutDirection(), whole, done), colors[Role::Accent]);
}

}  // namespace tallyfold::desktop

#include "desktop/veil.h"

#include <QEvent>
#include <QPainter>

#include "desktop/look/colors.h"

namespace tallyfold::desktop {
namespace {

constexpr double kLightVeil = 0.16;
constexpr double kDarkVeil = 0.43;

}  // namespace

Veil::Veil(QWidget* window) : QWidget(window) {
  setObjectName(QLatin1String("veil"));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  window->installEventFilter(this);
  hide();
}

bool Veil::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() == QEvent::Resize) setGeometry(parentWidget()->rect());
  return QWidget::eventFilter(receiver, event);
}

void Veil::paintEvent(QPaintEvent* /*event*/) {
  QColor shade(Qt::black);
  shade.setAlphaF(static_cast<float>(ColorsOf(palette()).IsDark() ? kDarkVeil : kLightVeil));
  QPainter(this).fillRect(rect(), shade);
}

}  // namespace tallyfold::desktop

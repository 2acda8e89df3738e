#include "desktop/sheets/tab_order.h"

#include <QLayout>
#include <QList>
#include <QScrollArea>
#include <QWidget>

namespace tallyfold::desktop {
namespace {

void CollectStops(const QLayout& layout, QList<QWidget*>& stops);

void CollectStops(QWidget& widget, QList<QWidget*>& stops) {
  if ((widget.focusPolicy() & Qt::TabFocus) != 0) stops.append(&widget);
  if (const auto* area = qobject_cast<const QScrollArea*>(&widget)) {
    if (area->widget() != nullptr) CollectStops(*area->widget(), stops);
  } else if (widget.layout() != nullptr) {
    CollectStops(*widget.layout(), stops);
  }
}

void CollectStops(const QLayout& layout, QList<QWidget*>& stops) {
  for (int i = 0; i < layout.count(); ++i) {
    QLayoutItem& item = *layout.itemAt(i);
    if (item.widget() != nullptr) {
      CollectStops(*item.widget(), stops);
    } else if (item.layout() != nullptr) {
      CollectStops(*item.layout(), stops);
    }
  }
}

}  // namespace

void TabInReadingOrder(QWidget& whole) {
  if (whole.layout() == nullptr) return;
  QList<QWidget*> stops;
  CollectStops(*whole.layout(), stops);
  for (qsizetype i = 1; i < stops.size(); ++i) QWidget::setTabOrder(stops[i - 1], stops[i]);
}

}  // namespace tallyfold::desktop

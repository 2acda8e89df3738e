#include "desktop/sheets/tab_order.h"

#include <QButtonGroup>
#include <QLayout>
#include <QRadioButton>
#include <QScrollArea>
#include <QWidget>

namespace tallyfold::desktop {
namespace {

bool IsTabStop(const QWidget& widget) {
  const auto* choice = qobject_cast<const QRadioButton*>(&widget);
  if (choice != nullptr && choice->group() != nullptr) {
    const QAbstractButton* chosen = choice->group()->checkedButton();
    if (chosen != nullptr) return chosen == choice;
  }
  return (widget.focusPolicy() & Qt::TabFocus) != 0;
}

void AddTabStops(const QLayout& layout, QList<QWidget*>& stops) {
  for (int i = 0; i < layout.count(); ++i) {
    QLayoutItem* item = layout.itemAt(i);
    if (item->layout() != nullptr) AddTabStops(*item->layout(), stops);
    QWidget* widget = item->widget();
    if (widget == nullptr) continue;
    if (IsTabStop(*widget)) stops.append(widget);
    const auto* area = qobject_cast<const QScrollArea*>(widget);
    if (area != nullptr && area->widget() != nullptr) widget = area->widget();
    if (widget->layout() != nullptr) AddTabStops(*widget->layout(), stops);
  }
}

}  // namespace

QList<QWidget*> TabStopsInReadingOrder(const QWidget& whole) {
  QList<QWidget*> stops;
  if (whole.layout() != nullptr) AddTabStops(*whole.layout(), stops);
  return stops;
}

void TabInReadingOrder(const QWidget& whole) {
  const QList<QWidget*> stops = TabStopsInReadingOrder(whole);
  for (qsizetype i = 1; i < stops.size(); ++i) QWidget::setTabOrder(stops[i - 1], stops[i]);
}

}  // namespace tallyfold::desktop

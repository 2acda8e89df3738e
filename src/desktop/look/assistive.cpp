#include "desktop/look/assistive.h"

#include <QAccessibleWidget>
#include <QTableView>
#include <QTimer>
#include <QVariant>
#include <QWidget>

#include "desktop/texts.h"
#include "platform/message.h"

namespace tallyfold::desktop {
namespace {

constexpr char kRoleProperty[] = "accessibleRole";

QAccessibleInterface* InterfaceOf(const QString& /*class_name*/, QObject* object) {
  const QVariant role = object != nullptr ? object->property(kRoleProperty) : QVariant();
  if (!role.isValid() || !object->isWidgetType()) return nullptr;
  return new QAccessibleWidget(static_cast<QWidget*>(object),
                               static_cast<QAccessible::Role>(role.toInt()));
}

}  // namespace

void SetAccessibleRole(QWidget& widget, QAccessible::Role role) {
  QAccessible::installFactory(&InterfaceOf);
  widget.setProperty(kRoleProperty, static_cast<int>(role));
}

void NameFigure(QWidget& widget, const QString& caption, const QString& figure) {
  const bool has_caption = !caption.isEmpty() && !figure.isEmpty();
  const QString name =
      has_caption ? ToQString(Message("{1}: {2}", {ToUtf8(caption), ToUtf8(figure)})) : figure;
  if (widget.accessibleName() == name) return;
  const bool is_first = widget.accessibleName().isEmpty();
  widget.setAccessibleName(name);
  if (is_first || name.isEmpty() || !widget.isVisible()) return;
  QAccessibleEvent alert(&widget, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void TellCurrentCell(QTableView& table) {
  if (!QAccessible::isActive()) return;
  // The table itself is told of once it has the focus.
  QTimer::singleShot(0, &table, [&table] {
    const QModelIndex current = table.currentIndex();
    if (!table.hasFocus() || !current.isValid()) return;
    QAccessibleTableInterface* cells =
        QAccessible::queryAccessibleInterface(&table)->tableInterface();
    QAccessibleInterface* cell = cells->cellAt(current.row(), current.column());
    if (cell == nullptr) return;
    QAccessibleEvent focus(cell, QAccessible::Focus);
    QAccessible::updateAccessibility(&focus);
  });
}

}  // namespace tallyfold::desktop

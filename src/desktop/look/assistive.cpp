#include "desktop/look/assistive.h"

#include <QAccessibleWidget>
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

}  // namespace tallyfold::desktop

#include "desktop/services/event_watch.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

namespace tallyfold::desktop {
namespace {

EventType ByButton(Qt::MouseButtons buttons, EventType left, EventType right, EventType other) {
  if (buttons.testFlag(Qt::LeftButton)) return left;
  return buttons.testFlag(Qt::RightButton) ? right : other;
}

bool IsModifier(int key) {
  switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock:
      return true;
    default:
      return false;
  }
}

}  // namespace

std::optional<EventType> TypeOf(const QEvent& event) {
  using enum EventType;
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return ByButton(static_cast<const QMouseEvent&>(event).button(), LeftMouseDown,
                      RightMouseDown, OtherMouseDown);
    case QEvent::MouseButtonRelease:
      return ByButton(static_cast<const QMouseEvent&>(event).button(), LeftMouseUp, RightMouseUp,
                      OtherMouseUp);
    case QEvent::MouseMove: {
      const Qt::MouseButtons buttons = static_cast<const QMouseEvent&>(event).buttons();
      if (buttons == Qt::NoButton) return MouseMoved;
      return ByButton(buttons, LeftMouseDragged, RightMouseDragged, OtherMouseDragged);
    }
    // A key that is a shortcut arrives as this alone.
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
      return IsModifier(static_cast<const QKeyEvent&>(event).key()) ? ModifierChange : KeyDown;
    case QEvent::KeyRelease:
      return KeyUp;
    case QEvent::Wheel:
      return ScrollWheel;
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletMove:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
    case QEvent::InputMethod:
      return Other;
    default:
      return std::nullopt;
  }
}

EventWatch::EventWatch(LDGRApplication& application) : application_(application) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool EventWatch::UserIsTracking() {
  return QApplication::activePopupWidget() != nullptr ||
         QApplication::mouseButtons() != Qt::NoButton;
}

bool EventWatch::eventFilter(QObject* receiver, QEvent* event) {
  // Each reaches the window first and then its widgets, once or several times.
  if (event->spontaneous() && receiver->isWindowType()) {
    if (const auto type = TypeOf(*event)) application_.sendEvent(*type);
  }
  return false;
}

}  // namespace tallyfold::desktop

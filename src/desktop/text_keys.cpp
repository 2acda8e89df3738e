#include "desktop/text_keys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace tallyfold::desktop {

TextKeys::TextKeys() {
  QCoreApplication::instance()->installEventFilter(this);
}

bool TextKeys::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() != QEvent::ShortcutOverride) return false;
  const auto* field = qobject_cast<const QLineEdit*>(receiver);
  if (field == nullptr) return false;
  auto* key = static_cast<QKeyEvent*>(event);
  const bool is_undo = key->matches(QKeySequence::Undo) && !field->isUndoAvailable();
  const bool is_redo = key->matches(QKeySequence::Redo) && !field->isRedoAvailable();
  if (!is_undo && !is_redo) return false;
  // Unanswered, it is looked up among the keys of the window.
  key->ignore();
  return true;
}

}  // namespace tallyfold::desktop

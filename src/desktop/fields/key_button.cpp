#include "desktop/fields/key_button.h"

#include <QShortcut>

namespace tallyfold::desktop {

void LDGRButton::SetKeyEquivalents(const QList<QKeySequence>& keys) {
  qDeleteAll(shortcuts_);
  shortcuts_.clear();
  for (const QKeySequence& key : keys) {
    auto* shortcut = new QShortcut(key, this);
    shortcut->setContext(Qt::WindowShortcut);
    connect(shortcut, &QShortcut::activated, this, &QPushButton::click);
    // A second meaning of the key elsewhere in the window must not leave it without any.
    connect(shortcut, &QShortcut::activatedAmbiguously, this, &QPushButton::click);
    shortcuts_.append(shortcut);
  }
}

}  // namespace tallyfold::desktop

#pragma once

#include <QKeySequence>
#include <QList>
#include <QPushButton>

class QShortcut;

namespace tallyfold::desktop {

// A button that keys of its window press, whatever has the focus there.
class LDGRButton : public QPushButton {
  Q_OBJECT

 public:
  using QPushButton::QPushButton;

  // Instead of those before. Where the button is off or out of sight they do nothing.
  void SetKeyEquivalents(const QList<QKeySequence>& keys);

 private:
  QList<QShortcut*> shortcuts_;
};

}  // namespace tallyfold::desktop

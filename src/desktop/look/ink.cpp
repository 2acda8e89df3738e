#include "desktop/look/ink.h"

#include <QWidget>

namespace tallyfold::desktop {

void SetTextInk(QWidget& label, const QColor& ink) {
  QPalette palette = label.palette();
  palette.setColor(QPalette::WindowText, ink);
  label.setPalette(palette);
  // On the ground of pages the toolkit would take the ink of texts.
  label.setForegroundRole(QPalette::WindowText);
}

void SetTextInk(QWidget& label, Role role) {
  SetTextInk(label, ColorsOf(label.palette())[role]);
}

}  // namespace tallyfold::desktop

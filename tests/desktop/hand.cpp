#include "desktop/hand.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <stdexcept>
#include <string>

namespace tallyfold::desktop {
namespace {

constexpr int kMostStops = 60;

// The menu that holds the action, and those that lead to it, the outermost first.
bool FindMenus(const QMenu& menu, const QAction* wanted, QList<QAction*>& path) {
  const auto actions = menu.actions();
  for (QAction* action : actions) {
    path.append(action);
    if (action == wanted) return true;
    if (action->menu() != nullptr && FindMenus(*action->menu(), wanted, path)) return true;
    path.removeLast();
  }
  return false;
}

}  // namespace

void Hand::To(const char* name) {
  const QLatin1String wanted(name);
  for (int i = 0; i < kMostStops && TestWindow::FocusName() != wanted; ++i) {
    TestWindow::Key(Qt::Key_Tab);
  }
  if (TestWindow::FocusName() != wanted) {
    throw std::logic_error(std::string("Tab does not go to ") + name + " but stays at " +
                           TestWindow::FocusName().toStdString());
  }
}

void Hand::Type(const char* name, const char* text) {
  To(name);
  if (qobject_cast<QLineEdit*>(TestWindow::Focus()) != nullptr) {
    TestWindow::Key(Qt::Key_A, Qt::ControlModifier);
  }
  TestWindow::Type(text);
}

void Hand::Press(const char* name) {
  To(name);
  TestWindow::Key(Qt::Key_Space);
}

void Hand::Choose(const char* name, const char* title) {
  To(name);
  auto* pop_up = TestWindow::Find<QComboBox>(name);
  TestWindow::Key(Qt::Key_Home);
  for (int i = 0; i < pop_up->count() && pop_up->currentText() != QLatin1String(title); ++i) {
    TestWindow::Key(Qt::Key_Down);
  }
  if (pop_up->currentText() != QLatin1String(title)) {
    throw std::logic_error(std::string(name) + " does not offer " + title);
  }
}

void Hand::Tick(const char* name, bool is_ticked) {
  To(name);
  if (TestWindow::Find<QAbstractButton>(name)->isChecked() != is_ticked) {
    TestWindow::Key(Qt::Key_Space);
  }
}

void Hand::RowFromEnd(const char* table, int up) {
  To(table);
  TestWindow::Key(Qt::Key_End);
  for (int i = 0; i < up; ++i) TestWindow::Key(Qt::Key_Up);
}

void Hand::Page(const char* list, const char* title) {
  const auto* pages = TestWindow::Find<QListWidget>(list);
  for (int i = 0; i < pages->count(); ++i) {
    if (pages->currentItem()->text() == QLatin1String(title)) return;
    TestWindow::Key(Qt::Key_PageDown, Qt::ControlModifier);
  }
  throw std::logic_error(std::string("there is no page ") + title);
}

void Hand::Order(const char* command) {
  auto* bar = test.program->window().findChild<QMenuBar*>();
  auto* wanted = test.program->window().findChild<QAction*>(QLatin1String(command));
  QList<QAction*> path;
  const auto menus = bar->actions();
  for (QAction* menu : menus) {
    path = {menu};
    if (FindMenus(*menu->menu(), wanted, path)) break;
  }
  if (path.last() != wanted) throw std::logic_error(command);
  const QString title = path.first()->text();
  const QChar letter = title[title.indexOf(QLatin1Char('&')) + 1].toUpper();
  TestWindow::Key(static_cast<Qt::Key>(letter.unicode()), Qt::AltModifier);
  for (QAction* action : path.mid(1)) {
    const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    for (int i = 0; menu != nullptr && menu->activeAction() != action && i < kMostStops; ++i) {
      TestWindow::Key(Qt::Key_Down);
    }
    if (menu == nullptr || menu->activeAction() != action) throw std::logic_error(command);
    TestWindow::Key(Qt::Key_Return);
  }
}

}  // namespace tallyfold::desktop

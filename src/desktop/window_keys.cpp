#include "desktop/window_keys.h"

#include <QApplication>
#include <QShortcut>
#include <functional>
#include <utility>
#include <vector>

#include "app/shell/tabs.h"
#include "desktop/drawer/accounts_list.h"
#include "desktop/main_window.h"
#include "desktop/search_strip.h"
#include "desktop/status_line.h"
#include "desktop/tab_strip.h"
#include "desktop/tabs/reconcile_band.h"
#include "desktop/tabs/register_page.h"
#include "desktop/tabs/schedule_tab.h"
#include "desktop/tabs/summary_tab.h"

namespace tallyfold::desktop {
namespace {

struct Stop {
  // Whatever has the focus inside it stands in the area.
  const QWidget* area;
  std::function<void()> focus;
};

std::vector<Stop> StopsOf(MainWindow& window) {
  const MainWindow::Pieces& pieces = window.pieces();
  const auto to_page = [&window] { window.FocusPage(); };
  return {
      {pieces.accounts, [accounts = pieces.accounts] { accounts->FocusTable(); }},
      {pieces.tabs, [tabs = pieces.tabs] { tabs->setFocus(Qt::TabFocusReason); }},
      {pieces.search, [search = pieces.search] { search->FocusField(); }},
      {pieces.entries, to_page},
      {pieces.reconcile, to_page},
      {pieces.schedule, to_page},
      {pieces.summary, to_page},
      {pieces.status, [status = pieces.status] { status->FocusFirst(); }},
  };
}

void Walk(MainWindow& window, int step) {
  const std::vector<Stop> stops = StopsOf(window);
  const int count = static_cast<int>(stops.size());
  const QWidget* focus = QApplication::focusWidget();
  int at = step > 0 ? -1 : count;
  for (int i = 0; i < count; ++i) {
    const QWidget* area = stops[static_cast<std::size_t>(i)].area;
    if (focus != nullptr && (area == focus || area->isAncestorOf(focus))) at = i;
  }
  // An area that is not shown, or has nothing that takes the focus, is passed over.
  for (int i = 1; i <= count; ++i) {
    const Stop& stop = stops[static_cast<std::size_t>(((at + i * step) % count + count) % count)];
    if (!stop.area->isVisible()) continue;
    stop.focus();
    if (QApplication::focusWidget() != focus) return;
  }
}

void Add(MainWindow& window, const QKeySequence& keys, std::function<void()> run) {
  QObject::connect(new QShortcut(keys, &window), &QShortcut::activated, &window, std::move(run));
}

}  // namespace

void AddWindowKeys(MainWindow& window, Tabs& tabs) {
  Add(window, QKeySequence(Qt::Key_F6), [&window] { Walk(window, 1); });
  Add(window, QKeySequence(Qt::SHIFT | Qt::Key_F6), [&window] { Walk(window, -1); });
  const auto turn = [&tabs](int step) {
    const int count = static_cast<int>(Tab::Summary) + 1;
    const int tab = static_cast<int>(tabs.State().selected) + step;
    tabs.Select(static_cast<Tab>((tab + count) % count));
  };
  Add(window, QKeySequence(Qt::CTRL | Qt::Key_PageUp), [turn] { turn(-1); });
  Add(window, QKeySequence(Qt::CTRL | Qt::Key_PageDown), [turn] { turn(1); });
}

}  // namespace tallyfold::desktop

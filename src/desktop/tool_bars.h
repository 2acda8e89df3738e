#pragma once

#include <QStackedWidget>
#include <vector>

#include "app/shell/tabs.h"

class QToolBar;
class QToolButton;

namespace tallyfold {
class AccountsDrawer;
}

namespace tallyfold::desktop {

class CommandActions;

// One tool bar for each tab, in the same place.
class ToolBars final : public QStackedWidget {
 public:
  // All must outlive this.
  ToolBars(CommandActions& actions, const Tabs& tabs, const AccountsDrawer& drawer,
           QWidget* parent);

  void Show();

 private:
  QToolBar* MakeBar(Tab tab);
  void AddNewSchedule(QToolBar& bar);

  CommandActions& actions_;
  const Tabs& tabs_;
  const AccountsDrawer& drawer_;
  std::vector<QToolButton*> drawer_buttons_;
};

}  // namespace tallyfold::desktop

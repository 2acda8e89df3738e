#include "desktop/tool_bars.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>
#include <array>
#include <span>
#include <string_view>

#include "app/accounts/accounts_drawer.h"
#include "desktop/command_actions.h"
#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/texts.h"
#include "platform/message.h"

namespace tallyfold::desktop {
namespace {

// A button of a tool bar; without a command a line between groups.
struct Tool {
  std::string_view command;
  const char* icon = "";
};
// Beside the margin that the style gives a tool bar.
constexpr int kBarInset = 2;
constexpr Tool kLine = {""};
// Stands for the menu of the three kinds.
constexpr std::string_view kNewSchedule = "new";

constexpr Tool kRegisterTools[] = {
    {"Entry_Debit", "debit"},
    {"Entry_Deposit", "deposit"},
    {"Entry_Transfer", "transfer"},
    kLine,
    {"Entry_Edit", "edit"},
    {"EntryRemoveConfirm_Begin", "remove"},
    kLine,
    {"QIFImport", "import"},
    {"Print_Open", "print"},
};
constexpr Tool kScheduleTools[] = {
    {kNewSchedule, "add"},
    kLine,
    {"Schedule_Edit", "edit"},
    {"Schedule_Duplicate", "copy"},
    {"ScheduleRemoveConfirm_Begin", "remove"},
    kLine,
    {"Schedule_CommitNext", "tick"},
    {"Schedule_SkipNext", "skip"},
    kLine,
    {"ScheduleReminderSheet_Open", "schedule"},
    {"Print_Open", "print"},
};
constexpr Tool kSummaryTools[] = {
    {"AccountSummary_Add", "add"},
    kLine,
    {"AccountSummarySheet_Open", "edit"},
    {"AccountSummary_Duplicate", "copy"},
    {"AccountSummary_Remove", "remove"},
    kLine,
    {"Print_Open", "print"},
};

std::span<const Tool> ToolsOf(Tab tab) {
  switch (tab) {
    case Tab::Schedule:
      return kScheduleTools;
    case Tab::Summary:
      return kSummaryTools;
    default:
      return kRegisterTools;
  }
}

// The command with its key, as a tool tip.
void Describe(QToolButton& button, const QAction& action) {
  const QString keys = action.shortcut().toString(QKeySequence::NativeText);
  button.setToolTip(keys.isEmpty()
                        ? TitleOf(action)
                        : ToQString(Message("{1} ({2})", {ToUtf8(TitleOf(action)), ToUtf8(keys)})));
  button.setAccessibleName(TitleOf(action));
}

}  // namespace

ToolBars::ToolBars(CommandActions& actions, const Tabs& tabs, const AccountsDrawer& drawer,
                   QWidget* parent)
    : QStackedWidget(parent), actions_(actions), tabs_(tabs), drawer_(drawer) {
  for (const Tab tab : {Tab::Entry, Tab::Reconcile, Tab::Schedule, Tab::Summary}) {
    addWidget(MakeBar(tab));
  }
  setFixedHeight(kBarHeight);
  setContentsMargins(kBarInset, 0, kBarInset, 0);
}

QToolBar* ToolBars::MakeBar(Tab tab) {
  auto* bar = new QToolBar(this);
  bar->setIconSize(QSize(kToolIconSize, kToolIconSize));
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  bar->setMovable(false);

  auto* drawer_button = new QToolButton(bar);
  drawer_button->setIcon(IconNamed(QLatin1String("accounts")));
  drawer_button->setIconSize(bar->iconSize());
  drawer_button->setCheckable(true);
  drawer_button->setFocusPolicy(Qt::TabFocus);
  QAction* toggle = actions_.Named("ToggleAccountsDrawer");
  connect(drawer_button, &QToolButton::clicked, toggle, [this, toggle] {
    toggle->trigger();
    Show();
  });
  bar->addWidget(drawer_button);
  drawer_buttons_.push_back(drawer_button);
  bar->addSeparator();

  for (const Tool& tool : ToolsOf(tab)) {
    if (tool.command.empty()) {
      bar->addSeparator();
    } else if (tool.command == kNewSchedule) {
      AddNewSchedule(*bar);
    } else {
      QAction* action = actions_.Named(tool.command);
      action->setIcon(IconNamed(QLatin1String(tool.icon)));
      bar->addAction(action);
    }
  }
  auto* space = new QWidget(bar);
  space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  bar->addWidget(space);
  QAction* lock = actions_.Named("lock");
  lock->setIcon(IconNamed(QLatin1String("lock")));
  bar->addAction(lock);

  // Holds what does not fit.
  if (auto* more = bar->findChild<QToolButton*>(QLatin1String("qt_toolbar_ext_button"))) {
    more->setAccessibleName(Text("More"));
    more->setToolTip(Text("More"));
    more->setFocusPolicy(Qt::TabFocus);
  }
  for (QAction* action : bar->actions()) {
    auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(action));
    if (button == nullptr || button == drawer_button) continue;
    button->setFocusPolicy(Qt::TabFocus);
    if (button->menu() == nullptr) Describe(*button, *action);
  }
  return bar;
}

void ToolBars::AddNewSchedule(QToolBar& bar) {
  auto* button = new QToolButton(&bar);
  button->setText(Text("New"));
  button->setAccessibleName(Text("New Scheduled Entry"));
  button->setIcon(IconNamed(QLatin1String("add")));
  button->setIconSize(bar.iconSize());
  button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  button->setPopupMode(QToolButton::InstantPopup);
  auto* menu = new QMenu(button);
  for (const char* name : {"Schedule_Debit", "Schedule_Deposit", "Schedule_Transfer"}) {
    menu->addAction(actions_.Named(name));
  }
  button->setMenu(menu);
  bar.addWidget(button);
}

void ToolBars::Show() {
  setCurrentIndex(static_cast<int>(tabs_.State().selected));
  for (QToolButton* button : drawer_buttons_) {
    const QString title = ToQString(drawer_.State().menu_item_title);
    button->setChecked(drawer_.State().is_open);
    button->setEnabled(actions_.Named("ToggleAccountsDrawer")->isEnabled());
    button->setToolTip(title);
    if (button->accessibleName() != title) button->setAccessibleName(title);
  }
}

}  // namespace tallyfold::desktop

#include "desktop/menu_bar.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>
#include <array>
#include <vector>

#include "app/commands/command.h"
#include "app/shell/menus.h"
#include "desktop/command_actions.h"
#include "desktop/entry_actions.h"
#include "desktop/filter_menu.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

struct MenuTitle {
  Menu menu;
  std::string_view title;
};
constexpr MenuTitle kMenus[] = {
    {Menu::File, "File"},   {Menu::Edit, "Edit"},         {Menu::Account, "Account"},
    {Menu::Entry, "Entry"}, {Menu::Schedule, "Schedule"}, {Menu::Summary, "Summary"},
    {Menu::View, "View"},   {Menu::Help, "Help"},
};

// Commands that begin a group of their menu.
constexpr std::string_view kGroupStarts[] = {
    "Save",
    "Print_Open",
    "BackUpNow",
    "lock",
    "Quit",
    "EntryFind_Open",
    "PreferencesSheet_Open",
    "OKThenNewDebit",
    "Entry_Edit",
    "Entry_Duplicate",
    "currentTableDataSource_Cleared_CheckBox",
    "ShowOtherHalf",
    "SpeakEntry",
    "Schedule_Edit",
    "Schedule_CommitNext",
    "Schedule_Speak",
    "ScheduleReminderSheet_Open",
    "entry_MenuItem",
    "Search_Cancel",
    "DateJump_Open",
    "SpeakFigures",
    "Account_Lock",
};

// What a field or table does with its text, by the name of its slot.
struct TextCommand {
  const char* slot;
  std::string_view title;
  QKeySequence::StandardKey keys;
};
constexpr TextCommand kTextCommands[] = {
    {"cut", "Cut", QKeySequence::Cut},
    {"copy", "Copy", QKeySequence::Copy},
    {"paste", "Paste", QKeySequence::Paste},
    {"selectAll", "Select All", QKeySequence::SelectAll},
};

constexpr int kAccountsWithKeys = 9;

// Of the menu for rows; an empty name is a line between groups.
constexpr std::string_view kRowCommands[] = {
    "Entry_Edit",
    "EntryRemoveConfirm_Begin",
    "",
    "currentTableDataSource_Cleared_CheckBox",
    "",
    "Entry_Duplicate",
    "Entry_ChangeKind",
    "Schedule_FromEntry",
    "",
    "ShowOtherHalf",
    "Entry_Link",
    "",
    "SpeakEntry",
    "StartSpeakingEntries",
    "SpeakEntries",
    "",
};

// On where what has the focus can do it.
void ShowTextEditing(QAction& action) {
  const QWidget* focus = QApplication::focusWidget();
  const QByteArray signature = action.objectName().toLatin1() + "()";
  action.setEnabled(focus != nullptr && focus->isEnabled() &&
                    focus->metaObject()->indexOfMethod(signature.constData()) >= 0);
}

}  // namespace

MenuBar::MenuBar(QMenuBar& bar, CommandActions& actions, const Parts& parts)
    : bar_(bar), actions_(actions), parts_(parts) {
  std::vector<QAction*> titles;
  for (const auto& [menu_id, title] : kMenus) {
    QMenu* menu = bar_.addMenu(QString());
    SetTitle(*menu->menuAction(), Text(title));
    titles.push_back(menu->menuAction());
    if (menu_id == Menu::Help) AddHelp(*menu);
    for (const Command* command : Commands()) {
      if (command->menu != menu_id) continue;
      const bool begins = std::ranges::find(kGroupStarts, command->name) != std::end(kGroupStarts);
      if (begins && !menu->isEmpty()) menu->addSeparator();
      menu->addAction(actions_.Named(command->name));
      if (command->name == "Redo") AddTextEditing(*menu);
    }
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
      actions_.Show();
      AssignMnemonics(*menu);
    });
    if (menu_id == Menu::Account) account_menu_ = menu;
    if (menu_id == Menu::Entry) entry_menu_ = menu;
    if (menu_id == Menu::Schedule) schedule_menu_ = menu;
    if (menu_id != Menu::View) continue;
    menu->addSeparator();
    auto* filters = new FilterMenu(parts_.search, menu);
    SetTitle(*filters->menuAction(), Text("Filter"));
    menu->addMenu(filters);
    details_ = menu->addAction(QString());
    details_->setObjectName(QLatin1String("details_MenuItem"));
    SetTitle(*details_, Text("Details of the Selected Entry"));
    details_->setCheckable(true);
    details_->setChecked(true);
    QMenu* columns = menu->addMenu(QString());
    columns->setObjectName(QLatin1String("viewMenu_Columns_Menu"));
    SetTitle(*columns->menuAction(), Text("Columns"));
    connect(menu, &QMenu::aboutToShow, this, [this, filters, columns] {
      columns->clear();
      parts_.fill_columns(*columns);
      columns->menuAction()->setEnabled(parts_.menus.AreOn() && !columns->isEmpty());
      details_->setEnabled(parts_.menus.AreOn());
      filters->menuAction()->setEnabled(actions_.Named("Search_Cancel")->isEnabled());
    });
  }
  AssignMnemonics(titles);

  accounts_separator_ = account_menu_->addSeparator();
  AddEntrySubmenus();
  MakeRowMenu(&bar_);
}

void MenuBar::AddEntrySubmenus() {
  const auto add = [this](const char* name, std::string_view title) {
    QMenu* menu = entry_menu_->addMenu(QString());
    menu->setObjectName(QLatin1String(name));
    SetTitle(*menu->menuAction(), Text(title));
    return menu;
  };
  entry_menu_->addSeparator();
  types_menu_ = add("entryMenu_Types_Menu", "Type");
  move_menu_ = add("entryMenu_Move_Menu", "Move to Account");
  halves_menu_ = add("entryMenu_OtherHalves_Menu", "Link as Transfer With");
}

void MenuBar::MakeRowMenu(QWidget* parent) {
  row_menu_ = new QMenu(parent);
  row_menu_->setObjectName(QLatin1String("row_Menu"));
  for (const std::string_view name : kRowCommands) {
    if (name.empty()) {
      row_menu_->addSeparator();
    } else {
      row_menu_->addAction(actions_.Named(name));
    }
    if (name == "currentTableDataSource_Cleared_CheckBox") row_menu_->addMenu(types_menu_);
    if (name == "Entry_Link") row_menu_->addMenu(halves_menu_);
    if (name == "Schedule_FromEntry") row_menu_->addMenu(move_menu_);
  }
  row_menu_->addAction(copy_);
  for (QMenu* menu : {entry_menu_, row_menu_}) {
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
      actions_.Show();
      ShowTextEditing(*copy_);
      parts_.entries.FillAccounts(*move_menu_);
      parts_.entries.FillOtherHalves(*halves_menu_);
      AssignMnemonics(*menu);
    });
  }
}

void MenuBar::AddHelp(QMenu& menu) {
  QAction* action = menu.addAction(Text("Tallyfold Help"));
  action->setObjectName(QLatin1String("help_MenuItem"));
  // The key is only shown: it is answered in front of a sheet too.
  action->setShortcut(QKeySequence(QKeySequence::HelpContents));
  action->setShortcutContext(Qt::WidgetShortcut);
  connect(action, &QAction::triggered, this, [this] { parts_.open_help(); });
  menu.addSeparator();
}

void MenuBar::AddTextEditing(QMenu& menu) {
  menu.addSeparator();
  for (const TextCommand& command : kTextCommands) {
    auto* action = menu.addAction(QString());
    SetTitle(*action, Text(command.title));
    action->setObjectName(QLatin1String(command.slot));
    // The keys are only shown: whatever has the focus answers them itself.
    action->setShortcut(QKeySequence(command.keys));
    action->setShortcutContext(Qt::WidgetShortcut);
    const char* slot = command.slot;
    connect(action, &QAction::triggered, this, [slot] {
      if (QWidget* focus = QApplication::focusWidget()) QMetaObject::invokeMethod(focus, slot);
    });
    connect(&menu, &QMenu::aboutToShow, action, [action] { ShowTextEditing(*action); });
    if (action->objectName() == QLatin1String("copy")) copy_ = action;
  }
}

void MenuBar::ShowAccounts() {
  QList<QAction*> shown = account_menu_->actions();
  shown.remove(0, shown.indexOf(accounts_separator_) + 1);
  const std::vector<MenuItem> items = parts_.menus.AccountMenu();
  for (qsizetype i = 0; i < static_cast<qsizetype>(items.size()); ++i) {
    const MenuItem& item = items[static_cast<std::size_t>(i)];
    if (i == shown.size()) {
      auto* action = new QAction(account_menu_);
      action->setCheckable(true);
      if (i < kAccountsWithKeys) {
        action->setShortcut(QKeySequence(QKeyCombination(
            Qt::ControlModifier, static_cast<Qt::Key>(static_cast<int>(Qt::Key_1 + i)))));
      }
      connect(action, &QAction::triggered, this, [this, action] {
        actions_.OrderIsNext();
        if (parts_.menus.AreOn()) parts_.menus.Account_Menu_Show_MenuItem(action->data().toInt());
        ShowAccounts();
      });
      account_menu_->addAction(action);
      shown.append(action);
    }
    QAction& action = *shown[i];
    SetTitle(action, ToQString(item.title));
    action.setData(item.tag);
    action.setChecked(item.is_checked);
    action.setEnabled(item.is_enabled && parts_.menus.AreOn());
  }
  for (auto i = static_cast<qsizetype>(items.size()); i < shown.size(); ++i) delete shown[i];
  accounts_separator_->setVisible(!items.empty());
}

void MenuBar::ShowTypes() {
  parts_.entries.FillTypes(*types_menu_);
}

}  // namespace tallyfold::desktop

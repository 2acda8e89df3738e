#include "desktop/command_actions.h"

#include <QAction>
#include <QMenu>
#include <QSet>
#include <QWidget>
#include <utility>

#include "app/accounts/accounts_drawer.h"
#include "app/commands/command.h"
#include "app/shell/tabs.h"
#include "app/shell/undo.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr char kTitle[] = "title";

// Shorter, for the buttons of the tool bars.
struct ButtonTitle {
  std::string_view command;
  std::string_view title;
};
constexpr ButtonTitle kButtonTitles[] = {
    {"Entry_Debit", "Debit"},
    {"Entry_Deposit", "Deposit"},
    {"Entry_Transfer", "Transfer"},
    {"Entry_Edit", "Edit"},
    {"EntryRemoveConfirm_Begin", "Remove"},
    {"QIFImport", "Import"},
    {"Print_Open", "Print"},
    {"Schedule_Edit", "Edit"},
    {"Schedule_Duplicate", "Duplicate"},
    {"ScheduleRemoveConfirm_Begin", "Remove"},
    {"Schedule_CommitNext", "Commit"},
    {"Schedule_SkipNext", "Skip"},
    {"ScheduleReminderSheet_Open", "Reminder"},
    {"AccountSummary_Add", "New"},
    {"AccountSummarySheet_Open", "Options"},
    {"AccountSummary_Duplicate", "Duplicate"},
    {"AccountSummary_Remove", "Remove"},
};

QList<QKeySequence> KeysOf(const Command& command) {
  if (command.shortcut.empty()) return {};
  QList<QKeySequence> keys{QKeySequence(ToQString(command.shortcut), QKeySequence::PortableText)};
  if (command.name == "Redo") keys.append(QKeySequence(Qt::CTRL | Qt::Key_Y));
  return keys;
}

}  // namespace

void SetTitle(QAction& action, const QString& title) {
  if (TitleOf(action) == title) return;
  action.setProperty(kTitle, title);
  action.setText(WithoutMnemonics(title));
}

QString TitleOf(const QAction& action) {
  return action.property(kTitle).toString();
}

void AssignMnemonics(QMenu& menu) {
  const QList<QAction*> actions = menu.actions();
  AssignMnemonics(std::vector<QAction*>(actions.begin(), actions.end()));
}

void AssignMnemonics(const std::vector<QAction*>& actions) {
  QSet<QChar> taken;
  for (QAction* action : actions) {
    const QString title = TitleOf(*action);
    if (title.isEmpty() || !action->isVisible()) continue;
    // First the letters that begin a word, then any.
    qsizetype place = -1;
    for (const bool at_word : {true, false}) {
      for (qsizetype i = 0; i < title.size() && place < 0; ++i) {
        const bool begins = i == 0 || title[i - 1] == QLatin1Char(' ');
        if (!title[i].isLetterOrNumber() || (at_word && !begins)) continue;
        if (!taken.contains(title[i].toLower())) place = i;
      }
    }
    QString text = WithoutMnemonics(title);
    if (place >= 0) {
      taken.insert(title[place].toLower());
      text = WithoutMnemonics(title.left(place)) + QLatin1Char('&') +
             WithoutMnemonics(title.mid(place));
    }
    if (action->text() != text) action->setText(text);
  }
}

CommandActions::CommandActions(LDGRController& app, const Parts& parts, QWidget& window)
    : app_(app), parts_(parts) {
  for (const Command* command : Commands()) {
    if (command->menu != Menu::None) Make(*command, window);
  }
  for (const auto& [command, title] : kButtonTitles) {
    Named(command)->setIconText(Text(title));
  }
  for (const char* name : {"entry_MenuItem", "reconcile_MenuItem"}) {
    Named(name)->setCheckable(true);
  }
  Named("Quit")->setMenuRole(QAction::QuitRole);
}

void CommandActions::Make(const Command& command, QWidget& window) {
  auto* action = new QAction(&window);
  action->setObjectName(ToQString(command.name));
  SetTitle(*action, Text(command.title));
  action->setShortcuts(KeysOf(command));
  // The tables know what it removes of theirs; elsewhere it must not remove what is out of sight.
  if (command.shortcut == "Del") action->setShortcutContext(Qt::WidgetShortcut);
  action->setMenuRole(QAction::NoRole);
  window.addAction(action);
  const std::string_view name = command.name;
  connect(action, &QAction::triggered, this, [this, name] {
    OrderIsNext();
    const auto instead = instead_.find(name);
    if (instead == instead_.end() || !instead->second()) Order(app_, name);
    // A click has turned the mark of a checkable one over, whatever came of it.
    Show();
  });
  entries_.push_back({&command, action});
  by_command_.emplace(&command, action);
}

QAction* CommandActions::Named(std::string_view name) const {
  const auto found = by_command_.find(CommandNamed(name));
  return found != by_command_.end() ? found->second : nullptr;
}

void CommandActions::Show() {
  for (const Entry& entry : entries_) entry.action->setEnabled(entry.command->can(app_));
  SetTitle(*Named("Undo"), ToQString(parts_.undo.UndoTitle()));
  SetTitle(*Named("Redo"), ToQString(parts_.undo.RedoTitle()));
  SetTitle(*Named("ToggleAccountsDrawer"), ToQString(parts_.drawer.State().menu_item_title));
  Named("entry_MenuItem")->setChecked(parts_.tabs.State().entry_item_is_checked);
  Named("reconcile_MenuItem")->setChecked(parts_.tabs.State().reconcile_item_is_checked);
}

void CommandActions::RunInstead(std::string_view name, std::function<bool()> run) {
  instead_[CommandNamed(name)->name] = std::move(run);
}

void CommandActions::AddKeyEquivalent(const KeyEquivalent& equivalent) {
  using Key = KeyEquivalent::Command;
  QAction* action =
      Named(equivalent.command == Key::depositEntry_MenuItem ? "depositEntry_MenuItem"
                                                             : "schedule_Deposit_MenuItem");
  if (action == nullptr || equivalent.key != '+') return;
  const Qt::KeyboardModifiers held =
      equivalent.with_option ? Qt::ControlModifier | Qt::AltModifier : Qt::ControlModifier;
  QList<QKeySequence> keys = action->shortcuts();
  // One is enough: the toolkit finds it as well for the keypad, and for the two keys that together
  // are the character. Where it finds two of one action it runs neither.
  const QKeySequence wanted(QKeyCombination(held, Qt::Key_Plus));
  if (keys.contains(wanted)) return;
  keys.append(wanted);
  action->setShortcuts(keys);
}

}  // namespace tallyfold::desktop

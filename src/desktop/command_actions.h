#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "app/face/window_hooks.h"

class QAction;
class QMenu;
class QString;
class QWidget;

namespace tallyfold {
class AccountsDrawer;
class LDGRController;
class Tabs;
class Undo;
struct Command;
}  // namespace tallyfold

namespace tallyfold::desktop {

// An action for every command that is in a menu, with its keys: enabled exactly when the command
// can run.
class CommandActions final : public QObject {
 public:
  // What knows titles and marks that change.
  struct Parts {
    const Undo& undo;
    const AccountsDrawer& drawer;
    const Tabs& tabs;
  };

  // The actions belong to `window`, whose keys they are. All must outlive this.
  CommandActions(LDGRController& app, const Parts& parts, QWidget& window);

  // The action of a command or control; null where it has none.
  [[nodiscard]] QAction* Named(std::string_view name) const;
  void Show();
  // Run before anything is ordered, here or by whoever calls OrderIsNext().
  void RunBefore(std::function<void()> run) { before_ = std::move(run); }
  void OrderIsNext() const {
    if (before_) before_();
  }
  // What is run in place of a command that can run, unless it returns false.
  void RunInstead(std::string_view name, std::function<bool()> run);
  // Another key for a command that has no button for it.
  void AddKeyEquivalent(const KeyEquivalent& equivalent);

 private:
  struct Entry {
    const Command* command;
    QAction* action;
  };

  void Make(const Command& command, QWidget& window);

  LDGRController& app_;
  Parts parts_;
  std::function<void()> before_;
  std::vector<Entry> entries_;
  std::map<const Command*, QAction*> by_command_;
  std::map<std::string_view, std::function<bool()>> instead_;
};

// Titles the action with a text that may hold "&". See AssignMnemonics().
void SetTitle(QAction& action, const QString& title);
[[nodiscard]] QString TitleOf(const QAction& action);
// Gives each action of the menu that was titled so a letter of its own, as far as there are any.
void AssignMnemonics(QMenu& menu);
void AssignMnemonics(const std::vector<QAction*>& actions);

}  // namespace tallyfold::desktop

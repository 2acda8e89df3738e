#pragma once

#include <QObject>
#include <functional>

class QAction;
class QMenu;
class QMenuBar;

namespace tallyfold {
class Menus;
class RegisterSearch;
}  // namespace tallyfold

namespace tallyfold::desktop {

class CommandActions;
class EntryActions;

// The menu bar: the commands in their order, the accounts, the types of entries, the filters and
// what is done with the text of a field.
class MenuBar final : public QObject {
 public:
  struct Parts {
    Menus& menus;
    EntryActions& entries;
    RegisterSearch& search;
    std::function<void()> open_help;
    // With what can be done with the columns of the table that shows; nothing where none does.
    std::function<void(QMenu&)> fill_columns;
  };

  // Fills `bar`, which like the others must outlive this.
  MenuBar(QMenuBar& bar, CommandActions& actions, const Parts& parts);

  void ShowAccounts();
  void ShowTypes();
  // Whether the registers have a line with details below them; on at first.
  [[nodiscard]] QAction* DetailsItem() const noexcept { return details_; }
  // For rows of a register.
  [[nodiscard]] QMenu* RowMenu() const noexcept { return row_menu_; }
  [[nodiscard]] QMenu* ScheduleMenu() const noexcept { return schedule_menu_; }

 private:
  void AddTextEditing(QMenu& menu);
  void AddHelp(QMenu& menu);
  void AddEntrySubmenus();
  void MakeRowMenu(QWidget* parent);

  QMenuBar& bar_;
  CommandActions& actions_;
  Parts parts_;
  QMenu* account_menu_ = nullptr;
  QMenu* entry_menu_ = nullptr;
  QMenu* schedule_menu_ = nullptr;
  QMenu* types_menu_ = nullptr;
  QMenu* move_menu_ = nullptr;
  QMenu* halves_menu_ = nullptr;
  QMenu* row_menu_ = nullptr;
  QAction* copy_ = nullptr;
  QAction* details_ = nullptr;
  // After these the items of the accounts follow.
  QAction* accounts_separator_ = nullptr;
};

}  // namespace tallyfold::desktop

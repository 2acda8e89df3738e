#pragma once

#include <QWidget>

class QLabel;
class QMenu;

namespace tallyfold {
class AccountsDrawer;
class Desk;
}  // namespace tallyfold

namespace tallyfold::desktop {

class FigureLabel;
class RegisterView;

// The list of the accounts, with the sum of those that are not locked below.
class AccountsList final : public QWidget {
 public:
  // All must outlive this.
  struct Parts {
    AccountsDrawer& drawer;
    const Desk& desk;
  };
  AccountsList(const Parts& parts, QWidget* parent);

  void Show();
  // Draws everything as the preferences want it now.
  void ShowLook();
  void FocusTable();

 private:
  bool eventFilter(QObject* receiver, QEvent* event) override;
  // Whatever came of choosing a row, the selected one is that of the selected account.
  void Choose(int row);

  Parts parts_;
  RegisterView* table_;
  QLabel* caption_;
  FigureLabel* total_;
};

}  // namespace tallyfold::desktop

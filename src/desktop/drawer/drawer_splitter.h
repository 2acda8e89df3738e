#pragma once

#include <QSplitter>

namespace tallyfold {
class AccountsDrawer;
class Desk;
}  // namespace tallyfold

namespace tallyfold::desktop {

class AccountsList;

// Holds the drawer with the accounts at one edge of the page, as wide as the user last made it.
class DrawerSplitter final : public QSplitter {
 public:
  // All must outlive this.
  struct Parts {
    const AccountsDrawer& drawer;
    Desk& desk;
  };
  DrawerSplitter(const Parts& parts, QWidget* parent);

  // Both are children of this already.
  void SetPieces(AccountsList& list, QWidget& page);
  // Places the drawer at the edge of the preferences, open or closed, as wide as they want it.
  void Show();

 private:
  void Fit();
  void resizeEvent(QResizeEvent* event) override;

  Parts parts_;
  AccountsList* list_ = nullptr;
  QWidget* page_ = nullptr;
};

}  // namespace tallyfold::desktop

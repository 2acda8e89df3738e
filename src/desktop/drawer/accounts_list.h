#pragma once

#include <QWidget>

#include "desktop/register/row_model.h"

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

  static constexpr int kLeastWidth = 160;
  [[nodiscard]] QSize minimumSizeHint() const override;
  void Show();
  // Draws everything as the preferences want it now.
  void ShowLook();
  void FocusTable();
  // The order and widths of the columns, to be kept between runs; what cannot be read changes
  // nothing.
  [[nodiscard]] QByteArray Frame() const;
  void SetFrame(const QByteArray& frame);

 private:
  bool eventFilter(QObject* receiver, QEvent* event) override;
  // Whatever came of choosing a row, the selected one is that of the selected account.
  void Choose(int row);

  // What cannot be read without a password.
  class Locks final : public RowDetails {
   public:
    explicit Locks(const AccountsDrawer& drawer) noexcept : drawer_(drawer) {}
    void AddTo(CellLook& look, std::string_view column, std::size_t row) const override;
    [[nodiscard]] QString ToolTipOf(std::string_view, std::size_t) const override { return {}; }

   private:
    const AccountsDrawer& drawer_;
  };

  Parts parts_;
  Locks locks_;
  RegisterView* table_;
  QLabel* caption_;
  FigureLabel* total_;
};

}  // namespace tallyfold::desktop

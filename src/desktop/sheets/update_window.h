#pragma once

#include <QPointer>

#include "desktop/sheets/sheet.h"

class QCheckBox;
class QLabel;
class QPushButton;

namespace tallyfold {
class Desk;
class UpdateCheck;
}  // namespace tallyfold

namespace tallyfold::desktop {

// What came of looking for a newer version.
class UpdateWindow final : public SheetDialog {
 public:
  // Each must outlive the window.
  struct Parts {
    UpdateCheck& updates;
    const Desk& desk;
  };

  UpdateWindow(const Parts& parts, QWidget* window);

  void ShowState() override;
  void Cancel() override;

 private:
  Parts parts_;
  QLabel* icon_;
  QLabel* heading_;
  QLabel* text_;
  QCheckBox* at_launch_;
  QPushButton* again_;
  QPushButton* close_;
};

// Opens the window and closes it, as the check wants it; behind a sheet or a question that is open
// when it is next told to show.
class UpdateWindowHost final {
 public:
  UpdateWindowHost(const UpdateWindow::Parts& parts, QWidget& window) noexcept
      : parts_(parts), window_(window) {}

  void Show();

 private:
  UpdateWindow::Parts parts_;
  QWidget& window_;
  QPointer<UpdateWindow> shown_;
};

}  // namespace tallyfold::desktop

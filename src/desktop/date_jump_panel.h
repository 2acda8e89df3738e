#pragma once

#include <QDialog>

namespace tallyfold {
class DateJump;
class Desk;
}  // namespace tallyfold

namespace tallyfold::desktop {

class DateField;

// A small field over the window for the day to go to in the register.
class DateJumpPanel final : public QDialog {
 public:
  // Both must outlive this.
  DateJumpPanel(DateJump& jump, const Desk& desk, QWidget* window);

  void Show();

 private:
  void accept() override;
  void reject() override;

  DateJump& jump_;
  const Desk& desk_;
  DateField* day_;
};

}  // namespace tallyfold::desktop

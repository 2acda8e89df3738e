#pragma once

#include <QPushButton>
#include <functional>
#include <utility>

namespace tallyfold {
class AccountEditing;
class Desk;
class LDGRAccount;
}  // namespace tallyfold

namespace tallyfold::desktop {

// "Take from Account...": a menu of the accounts beside the one that is edited, locked ones off.
class TakeFromButton final : public QPushButton {
 public:
  // Each must outlive the button.
  TakeFromButton(const Desk& desk, const AccountEditing& editing, QWidget* parent);

  // Off all the same where there is no other account.
  void SetUsable(bool is_usable);
  void SetTake(std::function<void(const LDGRAccount& other)> take) { take_ = std::move(take); }

 private:
  void ShowMenu();

  const Desk& desk_;
  const AccountEditing& editing_;
  std::function<void(const LDGRAccount&)> take_;
};

}  // namespace tallyfold::desktop

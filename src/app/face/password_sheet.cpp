#include "app/face/password_sheet.h"

#include <utility>

namespace tallyfold {

void PasswordSheet::Open(std::string title) {
  const Announcer::Operation operation(announcer_);
  if (!sheets_.IsFree()) return;
  window_->BringToFront();
  window_->RememberFirstResponder();
  window_->SetContentsEnabled(false);
  state_ = PasswordSheetState();
  state_.title = std::move(title);
  state_.is_open = true;
  announcer_.Changed(area_);
  sheets_.Open(which_, nullptr);
}

void PasswordSheet::ValidatePassword(std::string typed, const std::string& password) {
  if (!state_.is_open) return;
  if (state_.typed.password != typed) state_.problem.reset();
  state_.typed.password = std::move(typed);
  state_.ok_is_enabled = state_.typed.password == password;
  announcer_.Changed(area_);
}

void PasswordSheet::Refuse() {
  const bool was_enabled = std::exchange(state_.ok_is_enabled, false);
  const std::string sheet =
      which_ == Sheet::Authentication ? "authenticationSheet" : "accountAuthenticationSheet";
  state_.problem = {sheet + "_Password_Field", ""};
  // Otherwise everything looks as before.
  if (was_enabled) announcer_.Changed(area_);
}

void PasswordSheet::Close() {
  const Announcer::Operation operation(announcer_);
  if (!state_.is_open) return;
  window_->SetContentsEnabled(true);
  // A password field refuses nothing, and the sheet closes in any case.
  static_cast<void>(announcer_.EndEditing(which_));
  state_ = PasswordSheetState();
  announcer_.Changed(area_);
  sheets_.Close(which_);
  // The focus goes back to a window that the sheet has left.
  announcer_.HandOver();
  window_->RestoreFirstResponder();
}

}  // namespace tallyfold

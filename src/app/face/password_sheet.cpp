#include "app/face/password_sheet.h"

#include <utility>

namespace tallyfold {

void PasswordSheet::Open(std::string title) {
  if (!sheets_.IsFree()) return;
  window_->BringToFront();
  window_->RememberFirstResponder();
  window_->SetContentsEnabled(false);
  state_ = PasswordSheetState();
  state_.title = std::move(title);
  state_.is_open = true;
  front_end_.Changed(area_);
  sheets_.Open(which_, nullptr);
}

void PasswordSheet::ValidatePassword(std::string typed, const std::string& password) {
  if (!state_.is_open) return;
  state_.typed = std::move(typed);
  state_.ok_is_enabled = state_.typed == password;
  if (state_.ok_is_enabled) state_.alert.clear();
  front_end_.Changed(area_);
}

void PasswordSheet::DisableOK() {
  if (!state_.ok_is_enabled) return;
  state_.ok_is_enabled = false;
  front_end_.Changed(area_);
}

void PasswordSheet::Close() {
  if (!state_.is_open) return;
  window_->SetContentsEnabled(true);
  // A password field refuses nothing, and the sheet closes in any case.
  static_cast<void>(front_end_.EndEditing(which_));
  state_ = PasswordSheetState();
  front_end_.Changed(area_);
  sheets_.Close(which_);
  window_->RestoreFirstResponder();
}

}  // namespace tallyfold

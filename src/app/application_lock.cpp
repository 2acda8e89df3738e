#include "app/application_lock.h"

#include <chrono>
#include <utility>

namespace tallyfold {

bool ApplicationLock::authenticate(std::optional<std::string_view> password) {
  if (!password) return false;
  if (*password == accounts_.password()) accounts_.setAuthenticated(true);
  return accounts_.authenticated();
}

void ApplicationLock::lock() {
  if (!authenticated() || !sheets_.IsFree()) return;
  host_.Accounts_Save();
  host_.Preferences_Save();
  host_.Account_Deselect();
  accounts_.setAuthenticated(false);
  refresh_.Locked();
  authentication_Begin();
}

void ApplicationLock::WaitAtLaunch() {
  init_state_ = kWaitingForPassword;
  authentication_Begin();
}

void ApplicationLock::authentication_Begin() {
  if (!sheets_.Open(Sheet::Authentication)) return;
  state_ = PasswordSheetState();
  state_.is_open = true;
  front_end_.Changed(Area::AuthenticationSheet);
}

void ApplicationLock::ValidatePassword(std::string typed) {
  if (!state_.is_open) return;
  state_.typed = std::move(typed);
  state_.ok_is_enabled = state_.typed == accounts_.password();
  if (state_.ok_is_enabled) state_.alert.clear();
  front_end_.Changed(Area::AuthenticationSheet);
}

bool ApplicationLock::OK() {
  if (!state_.is_open || !authenticate(state_.typed)) return false;
  Close();
  init_state_ = 0;
  post_load_.Start(std::chrono::milliseconds(0), [this] { host_.Accounts_PostLoad(); });
  return true;
}

void ApplicationLock::Cancel() {
  if (!state_.is_open) return;
  Close();
  host_.Quit();
}

void ApplicationLock::Close() {
  state_ = PasswordSheetState();
  front_end_.Changed(Area::AuthenticationSheet);
  sheets_.Close(Sheet::Authentication);
}

}  // namespace tallyfold

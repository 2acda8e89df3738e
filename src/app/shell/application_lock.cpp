#include "app/shell/application_lock.h"

#include <chrono>

namespace tallyfold {

bool ApplicationLock::authenticate(std::optional<std::string_view> password) {
  if (!password) return false;
  if (*password == accounts_.password()) accounts_.setAuthenticated(true);
  return accounts_.authenticated();
}

void ApplicationLock::lock() {
  const Announcer::Operation operation(announcer_);
  if (!authenticated() || !sheets_.IsFree()) return;
  saving_.Accounts_Save();
  saving_.Preferences_Save();
  selection_.Account_Deselect();
  accounts_.setAuthenticated(false);
  refresh_.Locked();
  authentication_Begin();
}

void ApplicationLock::WaitAtLaunch() {
  init_state_ = kWaitingForPassword;
  authentication_Begin();
}

bool ApplicationLock::OK() {
  const Announcer::Operation operation(announcer_);
  if (!State().is_open) return false;
  if (!authenticate(State().typed.password)) {
    sheet_.Refuse();
    return false;
  }
  authenticationSheet_Close();
  init_state_ = 0;
  announcer_.Changed(Area::History);
  refresh_.AccountsList_Redraw();
  refresh_.Account_Menu_Show_Menu_Populate();
  post_load_.Start(std::chrono::milliseconds(0), [this] { selection_.Accounts_PostLoad(); });
  return true;
}

void ApplicationLock::Cancel() {
  const Announcer::Operation operation(announcer_);
  if (!State().is_open) return;
  authenticationSheet_Close();
  application_.Terminate();
}

}  // namespace tallyfold

#include "app/accounts/account_passwords.h"

#include <utility>

#include "platform/message.h"

namespace tallyfold {

void AccountPasswords::Account_Authenticate(const std::shared_ptr<LDGRAccount>& account) {
  if (account == nullptr || authenticating_account_ != nullptr || !sheets_.IsFree()) return;
  authenticating_account_ = account;
  if (account->HasPassword() && !account->IsAuthenticated()) AccountAuthenticationSheet_Open();
}

void AccountPasswords::AccountAuthenticationSheet_Open() {
  sheet_.Open(Message("The Account \"{1}\" is protected by a password.",
                      {authenticating_account_->GetName()}));
  // Its row is the selected one.
  refresh_.AccountsList_Redraw();
}

void AccountPasswords::Account_Lock(const std::shared_ptr<LDGRAccount>& account) {
  const Announcer::Operation operation(announcer_);
  if (account == nullptr) return;
  const bool is_selected = account == desk_.SelectedAccount();
  if (is_selected) preferences_.Preferences_StoreAccountPrefs(account.get());
  account->setAuthenticated(false);
  announcer_.Changed(Area::History);
  if (is_selected) return selection_.Account_Deselect();
  refresh_.AccountsList_Redraw();
  refresh_.Account_Menu_Show_Menu_Populate();
}

void AccountPasswords::accountAuthenticationSheet_ValidatePassword(std::string typed) {
  if (!State().is_open) return;
  sheet_.ValidatePassword(std::move(typed), authenticating_account_->GetPassword());
}

bool AccountPasswords::AccountAuthenticationSheet_OK() {
  const Announcer::Operation operation(announcer_);
  if (!State().is_open) return false;
  const auto account = authenticating_account_;
  if (!account->Authenticate(State().typed.password)) {
    sheet_.Refuse();
    return false;
  }
  AccountAuthenticationSheet_Close();
  announcer_.Changed(Area::History);
  selection_.Account_Select(account);
  return true;
}

void AccountPasswords::AccountAuthenticationSheet_Cancel() {
  const Announcer::Operation operation(announcer_);
  if (!State().is_open) return;
  AccountAuthenticationSheet_Close();
  selection_.Account_Select(desk_.SelectedAccount());
}

void AccountPasswords::AccountAuthenticationSheet_Close() {
  sheet_.Close();
  authenticating_account_ = nullptr;
}

}  // namespace tallyfold

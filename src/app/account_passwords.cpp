#include "app/account_passwords.h"

#include <utility>

#include "platform/ambient.h"

namespace tallyfold {

void AccountPasswords::Account_Authenticate(const std::shared_ptr<LDGRAccount>& account) {
  if (account == nullptr || authenticating_account_ != nullptr || !sheets_.IsFree()) return;
  authenticating_account_ = account;
  if (account->HasPassword() && !account->IsAuthenticated()) AccountAuthenticationSheet_Open();
}

void AccountPasswords::AccountAuthenticationSheet_Open() {
  state_ = PasswordSheetState();
  state_.is_open = true;
  state_.title = LocalizedText("The Account") + " \"" + authenticating_account_->GetName() + "\" " +
                 LocalizedText("is protected by a password.");
  front_end_.Changed(Area::AccountAuthenticationSheet);
  sheets_.Open(Sheet::AccountAuthentication);
}

void AccountPasswords::Account_Lock(const std::shared_ptr<LDGRAccount>& account) {
  if (account == nullptr) return;
  account->setAuthenticated(false);
  if (account == host_.SelectedAccount()) host_.Account_Deselect();
}

void AccountPasswords::ValidatePassword(std::string typed) {
  if (!state_.is_open) return;
  state_.typed = std::move(typed);
  state_.ok_is_enabled = state_.typed == authenticating_account_->GetPassword();
  if (state_.ok_is_enabled) state_.alert.clear();
  front_end_.Changed(Area::AccountAuthenticationSheet);
}

bool AccountPasswords::AccountAuthenticationSheet_OK() {
  if (!state_.is_open) return false;
  const auto account = authenticating_account_;
  if (!account->Authenticate(state_.typed)) {
    state_.ok_is_enabled = false;
    front_end_.Changed(Area::AccountAuthenticationSheet);
    return false;
  }
  AccountAuthenticationSheet_Close();
  host_.Account_Select(account);
  return true;
}

void AccountPasswords::AccountAuthenticationSheet_Cancel() {
  if (!state_.is_open) return;
  AccountAuthenticationSheet_Close();
  host_.Account_Select(host_.SelectedAccount());
}

void AccountPasswords::AccountAuthenticationSheet_Close() {
  state_ = PasswordSheetState();
  authenticating_account_ = nullptr;
  front_end_.Changed(Area::AccountAuthenticationSheet);
  sheets_.Close(Sheet::AccountAuthentication);
}

}  // namespace tallyfold

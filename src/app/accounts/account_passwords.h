#pragma once

#include <memory>
#include <string>

#include "app/accounts/account_selection.h"
#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/front_end.h"
#include "app/face/password_sheet.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "app/face/window_hooks.h"
#include "model/account.h"
#include "storage/preferences_store.h"

namespace tallyfold {

// The passwords of single accounts.
class AccountPasswords {
 public:
  AccountPasswords(Desk& desk, AccountSelection& selection, PreferencesStore& preferences,
                   SheetSlot& sheets, WindowHooksSlot& window, Refresh& refresh,
                   Announcer& announcer) noexcept
      : desk_(desk),
        selection_(selection),
        preferences_(preferences),
        sheets_(sheets),
        refresh_(refresh),
        announcer_(announcer),
        sheet_(Sheet::AccountAuthentication, Area::AccountAuthenticationSheet, sheets, window,
               announcer) {}
  AccountPasswords(const AccountPasswords&) = delete;
  AccountPasswords& operator=(const AccountPasswords&) = delete;

  [[nodiscard]] const PasswordSheetState& State() const noexcept { return sheet_.State(); }
  // The account whose authentication is under way, or null.
  [[nodiscard]] const std::shared_ptr<LDGRAccount>& authenticatingAccount() const noexcept {
    return authenticating_account_;
  }
  // The accounts are being replaced: none is being authenticated.
  void Forget() { AccountAuthenticationSheet_Close(); }

  // Asks for the account's password. Nothing for null, while another authentication is under way or
  // a sheet is open. An account that needs no password counts as under way all the same, until the
  // sheet is closed the next time: this order is kept on purpose.
  void Account_Authenticate(const std::shared_ptr<LDGRAccount>& account);
  // Asks for the account's password again the next time, if it has one. The selected account is
  // deselected in any case. Nothing for null.
  void Account_Lock(const std::shared_ptr<LDGRAccount>& account);

  // A keystroke: takes over the text; OK is enabled when it is the password.
  void accountAuthenticationSheet_ValidatePassword(std::string typed);
  // Selects the account. False when the password is wrong: OK is disabled.
  bool AccountAuthenticationSheet_OK();
  // Stays with the account that was selected before.
  void AccountAuthenticationSheet_Cancel();
  // Also ends the authentication under way.
  void AccountAuthenticationSheet_Close();

 private:
  void AccountAuthenticationSheet_Open();

  Desk& desk_;
  AccountSelection& selection_;
  PreferencesStore& preferences_;
  SheetSlot& sheets_;
  Refresh& refresh_;
  Announcer& announcer_;
  PasswordSheet sheet_;
  std::shared_ptr<LDGRAccount> authenticating_account_;
};

}  // namespace tallyfold

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "app/accounts/account_selection.h"
#include "app/face/announcer.h"
#include "app/face/front_end.h"
#include "app/face/password_sheet.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "app/face/window_hooks.h"
#include "app/shell/saving.h"
#include "platform/application_host.h"
#include "platform/run_loop.h"
#include "storage/accounts_store.h"

namespace tallyfold {

// The password of the whole application. It hides the data from whoever sits at the machine; it
// does not encrypt them.
class ApplicationLock {
 public:
  // Of initState().
  static constexpr std::int32_t kWaitingForPassword = 2;

  ApplicationLock(AccountsStore& accounts, Saving& saving, AccountSelection& selection,
                  ApplicationHost& application, SheetSlot& sheets, WindowHooksSlot& window,
                  Refresh& refresh, RunLoop& loop, Announcer& announcer) noexcept
      : accounts_(accounts),
        saving_(saving),
        selection_(selection),
        application_(application),
        sheets_(sheets),
        refresh_(refresh),
        announcer_(announcer),
        sheet_(Sheet::Authentication, Area::AuthenticationSheet, sheets, window, announcer),
        post_load_(loop) {}
  ApplicationLock(const ApplicationLock&) = delete;
  ApplicationLock& operator=(const ApplicationLock&) = delete;

  // Where the launch stopped: kWaitingForPassword until the password is given, else 0.
  [[nodiscard]] std::int32_t initState() const noexcept { return init_state_; }
  [[nodiscard]] const PasswordSheetState& State() const noexcept { return sheet_.State(); }

  [[nodiscard]] bool authenticated() const noexcept { return accounts_.authenticated(); }
  [[nodiscard]] const std::string& password() const noexcept { return accounts_.password(); }
  // None leaves the old one.
  void setPassword(std::optional<std::string_view> password) { accounts_.setPassword(password); }
  // Whether the application is unlocked now; a wrong password, or none, does not lock it.
  bool authenticate(std::optional<std::string_view> password);

  // Saves accounts and preferences, clears the screen and asks for the password. Does nothing while
  // it is locked already or a sheet is open.
  void lock();
  // The launch waits for the password.
  void WaitAtLaunch();
  // Asks for the password.
  void authentication_Begin() { authenticationSheet_Open(); }
  void authenticationSheet_Open() { sheet_.Open(""); }
  void authenticationSheet_Close() { sheet_.Close(); }

  // A keystroke: takes over the text; OK is enabled when it is the password.
  void authenticationSheet_ValidatePassword(std::string typed) {
    sheet_.ValidatePassword(std::move(typed), accounts_.password());
  }
  // Unlocks; the accounts are shown after the current event. False when the password is wrong.
  bool OK();
  // Ends the program: there is no way past the password.
  void Cancel();

 private:
  AccountsStore& accounts_;
  Saving& saving_;
  AccountSelection& selection_;
  ApplicationHost& application_;
  SheetSlot& sheets_;
  Refresh& refresh_;
  Announcer& announcer_;
  PasswordSheet sheet_;
  std::int32_t init_state_ = 0;
  DelayedCall post_load_;
};

}  // namespace tallyfold

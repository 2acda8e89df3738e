#pragma once

#include <memory>
#include <string>

#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/refresh.h"
#include "app/face/window_hooks.h"
#include "model/account.h"
#include "storage/preferences_store.h"

namespace tallyfold {

class LDGRPreferences;

// Which account is selected. Everything that shows one account follows from here; this alone sets
// the current account of model/current_account.h.
class AccountSelection {
 public:
  class Host {
   public:
    virtual ~Host() = default;
    virtual void StopSpeech() = 0;
    // Asks for the password of a locked account.
    virtual void Account_Authenticate(const std::shared_ptr<LDGRAccount>& account) = 0;
    // The first account of an empty list is made by the user.
    virtual bool Account_Add() = 0;
    // The summary of the account that is selected now is shown; none empties the summary view and
    // its list.
    virtual void ShowSummary() = 0;
    // The registers and the schedule list show the account as its view preferences tell; null
    // empties them.
    virtual void ShowInTables(const std::shared_ptr<LDGRAccount>& account) = 0;
    // Gives the current register the selected account's filtered entries and sets up its filter.
    virtual void FillCurrentRegister() = 0;
    // Empties and disables the search fields.
    virtual void ClearSearch() = 0;
    // The accounts come before the user: what was found of an interrupted session is settled.
    virtual void SettleRecovery() = 0;
    // The reminder of scheduled entries counts anew from now.
    virtual void ReplaceScheduleReminderTimer() = 0;
  };

  AccountSelection(Host& host, Desk& desk, PreferencesStore& preferences, WindowHooksSlot& window,
                   Refresh& refresh, Announcer& announcer) noexcept
      : host_(host),
        desk_(desk),
        preferences_(preferences),
        window_(window),
        refresh_(refresh),
        announcer_(announcer) {}
  AccountSelection(const AccountSelection&) = delete;
  AccountSelection& operator=(const AccountSelection&) = delete;
  ~AccountSelection();

  // The title of the main window.
  [[nodiscard]] const std::string& WindowTitle() const noexcept { return window_title_; }

  // Whether the accounts that were loaded have been shown since.
  [[nodiscard]] bool HasPostLoaded() const noexcept { return has_post_loaded_; }

  // Shows what the user saw last: the account the preferences remember, else the first; without
  // any account, opens the sheet for a new one. Nothing while the application is locked.
  void Accounts_PostLoad();
  // Selects an account whose password has been given or that has none; asks for the password of
  // any other. Null deselects. Nothing is selected while the application is locked.
  void Account_Select(const std::shared_ptr<LDGRAccount>& account);
  // Also ends speech, which would go on reading what is shown no more.
  void Account_Deselect();
  // Titles the window after the account, or after there being none.
  void SetMainWindowTitleForAccount(const LDGRAccount* account);
  // No account is selected from here on, and nothing is refreshed: the accounts are being replaced.
  void Forget() noexcept;

 private:
  void ClearSelected() noexcept;
  void Select(const std::shared_ptr<LDGRAccount>& account);

  Host& host_;
  Desk& desk_;
  PreferencesStore& preferences_;
  WindowHooksSlot& window_;
  Refresh& refresh_;
  Announcer& announcer_;
  std::string window_title_;
  bool has_post_loaded_ = false;
};

}  // namespace tallyfold

#pragma once

#include <memory>
#include <string>

#include "app/face/front_end.h"
#include "app/face/refresh.h"
#include "model/account.h"

namespace tallyfold {

class LDGRPreferences;

// Which account is selected. Everything that shows one account follows from here; this alone sets
// the current account of model/current_account.h.
class AccountSelection {
 public:
  class Host {
   public:
    virtual ~Host() = default;
    [[nodiscard]] virtual const AccountList& Accounts() const = 0;
    // The first with that number, or null.
    [[nodiscard]] virtual std::shared_ptr<LDGRAccount> AccountWithNumber(
        std::int32_t number) const = 0;
    [[nodiscard]] virtual LDGRPreferences& Preferences() = 0;
    // False while the application waits for its password.
    [[nodiscard]] virtual bool IsUnlocked() const = 0;

    virtual void StopSpeech() = 0;
    // Asks for the password of a locked account.
    virtual void Account_Authenticate(const std::shared_ptr<LDGRAccount>& account) = 0;
    // The first account of an empty list is made by the user.
    virtual bool Account_Add() = 0;
    virtual void Preferences_StoreAccountPrefs(LDGRAccount& account) = 0;
    // The account's summary is shown; null empties the summary view and its list.
    virtual void ShowSummary(LDGRAccount* account) = 0;
    // The registers and the schedule list show the account as its view preferences tell; null
    // empties them.
    virtual void ShowInTables(const std::shared_ptr<LDGRAccount>& account) = 0;
    // Gives the current register the selected account's filtered entries and sets up its filter.
    virtual void FillCurrentRegister() = 0;
    virtual void FocusAccountsTable() = 0;
    // The reminder of scheduled entries counts anew from now.
    virtual void ReplaceScheduleReminderTimer() = 0;
  };

  AccountSelection(Host& host, Refresh& refresh, FrontEnd& front_end) noexcept
      : host_(host), refresh_(refresh), front_end_(front_end) {}
  AccountSelection(const AccountSelection&) = delete;
  AccountSelection& operator=(const AccountSelection&) = delete;
  ~AccountSelection();

  // Null when no account is selected.
  [[nodiscard]] const std::shared_ptr<LDGRAccount>& Selected() const noexcept { return selected_; }
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
  void Account_Deselect();
  // Titles the window after the account, or after there being none.
  void SetMainWindowTitleForAccount(const LDGRAccount* account);
  // No account is selected from here on, and nothing is refreshed: the accounts are being replaced.
  void Forget() noexcept;

 private:
  void ClearSelected() noexcept;
  void Select(const std::shared_ptr<LDGRAccount>& account);

  Host& host_;
  Refresh& refresh_;
  FrontEnd& front_end_;
  std::shared_ptr<LDGRAccount> selected_;
  std::string window_title_;
  bool has_post_loaded_ = false;
};

}  // namespace tallyfold
